#pragma once

#include "platform/jet/Database.h"
#include "platform/jet/store/OpenFile.h"

#include <zablager/DatabaseError.h>

#include <QString>

#include <functional>
#include <memory>

namespace jet {

/// What an open Database and its recordsets have in common; the recordsets notice by it that the database was
/// closed.
struct Database::Session {
    // Shared with the engine, which keeps the file open for the next opening.
    std::shared_ptr<OpenFile> file; ///< Null once closed.
    OpenOther openOther;
    std::function<void(std::shared_ptr<OpenFile>)> giveBack;
    std::function<void(const QString& path)> requireDatabase; ///< Throws what opening the file would.
    QString path;
    bool transaction = false; ///< BeginTrans was called and not yet answered.

    /// \throws Error ObjectClosed.
    OpenFile& use() const;

    /// BeginTrans is not answered yet, and no fault of the disk has ended it.
    bool hasTransaction();
    void undo();  ///< Drops what BeginTrans gathered.
    void letGo(); ///< Gives the connection back; the database is closed then.

    /// Does the work, and does it once more when it failed because another program has changed the file's
    /// tables. Work that has failed has changed nothing.
    template <typename Work>
    auto withPresentSchema(Work work)
    {
        const bool inTransaction = use().connection().inTransaction();
        try {
            return work();
        } catch (const Error& error) {
            // Asking a locked file for its tables would wait for the same lock once more.
            if (error.number() == ErrorNumber::Locked || !use().forgetIfChanged()) throw;
            // A fault of the disk has taken back the tables that the transaction had made, and the
            // transaction.
            if (inTransaction != use().connection().inTransaction()) throw;
        }
        return work();
    }

    /// Does the work; a refusal that may be the file's fault leaves it as the user is to read it.
    template <typename Work>
    auto told(Work work) const
    {
        try {
            return work();
        } catch (const Error& error) {
            tell(error);
        }
    }

private:
    [[noreturn]] void tell(const Error& error) const;
};

} // namespace jet
