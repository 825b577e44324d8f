#pragma once

#include "platform/jet/Database.h"
#include "platform/jet/sqlite/Attachments.h"
#include "platform/jet/sqlite/Connection.h"

#include <zablager/DatabaseError.h>

#include <QString>

#include <functional>
#include <memory>

namespace jet {

/// What an open Database and its recordsets have in common; the recordsets notice by it that the database was closed.
struct Database::Session {
    // Shared with the engine, which keeps the connection for the next opening.
    std::shared_ptr<sqlite::Connection> connection; ///< Null once closed.
    sqlite::OpenFile openFile;
    std::function<void(std::shared_ptr<sqlite::Connection>)> giveBack;
    QString path;
    bool transaction = false; ///< BeginTrans was called and not yet answered.

    /// \throws Error ObjectClosed.
    sqlite::Connection& use() const;

    /// BeginTrans is not answered yet, and no fault of the disk has ended it.
    bool hasTransaction();
    void undo();  ///< Drops what BeginTrans gathered.
    void letGo(); ///< Gives the connection back; the database is closed then.

    /// Does the work, and does it once more when it failed because another program has changed the file's tables. Work
    /// that has failed has changed nothing.
    template <typename Work>
    auto withPresentSchema(Work work)
    {
        try {
            return work();
        } catch (const Error&) {
            if (!use().forgetIfChanged()) throw;
        }
        return work();
    }
};

} // namespace jet
