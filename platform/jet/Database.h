#pragma once

#include "platform/jet/Recordset.h"
#include "platform/jet/TableDef.h"

#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <vector>

namespace jet {

/// Two marks of one file that has stayed open in between are equal when nobody has changed it; those of two
/// files never are.
struct ChangeMark {
    const void* file = nullptr;
    std::array<qint64, 3> counters{};
    bool operator==(const ChangeMark&) const = default;
};

/// One open database file. Each statement and each Update() is a commit of its own, but between BeginTrans
/// and CommitTrans; an action statement is done as a whole or not at all. Two Databases of one file and
/// connect text are one to the file: what both write while one has a transaction is committed with it.
class Database {
public:
    ~Database(); ///< Closes, and keeps what was written: rows booked before an error stay booked.
    Q_DISABLE_COPY_MOVE(Database)

    /// Executes one action statement (everything but SELECT without INTO). \returns the number of rows
    /// affected. \throws Error with the number and text of the refusal; nothing is then changed.
    qint64 Execute(const QString& sql);
    /// Opens the rows of a table or SELECT statement.
    std::unique_ptr<Recordset> OpenRecordset(const QString& source, Kind kind = Kind::Dynaset);

    /// Tables and links of the file, in no promised order. System tables are not among them.
    std::vector<TableDef> TableDefs() const;
    bool HasIndex(const QString& table,
                  const QString& index) const; ///< False, too, where there is no such table.
    /// Creates a link named `name` to a table of another file, which is opened once to see that it is there.
    /// \throws Error FileNotFound, WrongPassword, ObjectNotFound, TableExists.
    void CreateTableDef(const QString& name, const QString& connect, const QString& sourceTable);

    /// Gathers the writes up to CommitTrans or Close in one commit. \throws Error Locked when another program
    /// writes. A full disk or a fault of it drops what was gathered and ends the transaction.
    void BeginTrans();
    void
    CommitTrans();   ///< Durable when it returns. \throws Error DiskFull, Locked; the transaction stays open.
    void Rollback(); ///< Drops what BeginTrans gathered; without it, nothing.
    /// Commits what BeginTrans gathered, closes the recordsets. A second call does nothing.
    /// \throws Error as CommitTrans; the database then stays open, so that it can be tried again.
    void Close();

    /// What is damaged in the file, in its store's own words; empty: nothing. Reads the whole file.
    QStringList Faults() const;

    bool Updatable() const; ///< False: the file, or its directory, may not be written.
    QString Name() const;   ///< The local path of the file.

    /// How far whoever made the tables has brought them, as he counts; 0 when he never said. Read once a
    /// connection, and anew in a transaction that writes.
    int SchemaVersion() const;
    void setSchemaVersion(int version);

    /// A mark of the file as it is now. \throws Error Locked.
    ChangeMark Mark() const;

    struct Session; ///< Known to this room only.

private:
    friend class Appender;
    friend class Engine;
    friend class Reading;
    friend class Transaction;
    friend void copyWhereMissing(const QString& templateFile, const QString& connect, const QString& target);
    explicit Database(std::shared_ptr<Session> session);
    std::unique_ptr<Recordset::Rows> rowsOf(const QString& source, Kind kind) const;
    std::shared_ptr<Session> m_session; // shared with the recordsets, which must notice that it was closed
};

} // namespace jet
