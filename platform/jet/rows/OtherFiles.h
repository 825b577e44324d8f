#pragma once

#include "platform/jet/sql/Tree.h"
#include "platform/jet/store/OpenFile.h"
#include "platform/system/FileIdentity.h"

#include <optional>
#include <vector>

namespace jet {

/// Other files that a statement reads or writes, at its own file's hand while this lives.
class OtherFiles {
public:
    OtherFiles(OpenFile& own, OpenOther open) : m_own(own), m_open(std::move(open)) {}
    ~OtherFiles();
    Q_DISABLE_COPY_MOVE(OtherFiles)

    /// A file that rows are to go to.
    struct Target {
        std::shared_ptr<OpenFile> file;
        std::optional<int> number; ///< By which the statement reaches it; none: rows go there one by one.
    };
    /// \throws Error FileNotFound, WrongPassword and whatever opening tells.
    Target target(const QString& path, const QString& connect);
    /// The linked table as statements see it; where its store is another one, a copy of what it holds now.
    /// \throws Error also ObjectNotFound when the file has no such table.
    bind::TablePtr table(const store::Link& link);
    bool isEmpty() const { return m_files.empty(); }

private:
    struct Attached {
        sys::FileIdentity identity;
        int number;
    };
    /// The number of a file that is at hand already or is now; none: the store cannot.
    std::optional<int> attach(OpenFile& file);
    int nextNumber();
    bind::TablePtr lend(OpenFile& file, const bind::Table& table);

    OpenFile& m_own;
    OpenOther m_open;
    std::vector<Attached> m_files;
};

/// Adds the rows of a cursor to a table, each value converted to the type of its column. \returns their
/// number.
qint64 addRows(store::Connection& connection, const bind::Table& table, store::Cursor& rows,
               const std::vector<Field>& fields);

} // namespace jet
