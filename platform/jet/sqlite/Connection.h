#pragma once

#include "platform/jet/sqlite/Statement.h"

#include <QByteArray>
#include <QCache>
#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <utility>

struct sqlite3;

namespace jet::sqlite {

/// An open SQLite file with the dialect's functions and collation and its prepared statements.
class Connection {
public:
    enum class Mode { Existing, New };
    /// \throws Error UnknownFormat, CannotOpenFile, Locked.
    Connection(const QString& path, Mode mode, int lockTimeout);
    ~Connection();
    Q_DISABLE_COPY_MOVE(Connection)

    sqlite3* handle() const { return m_handle.get(); }
    const QString& path() const { return m_path; }
    bool isWritable() const;
    void setLockTimeout(int milliseconds);

    /// The prepared statement of that text; the last ones used are kept.
    Statement& prepared(const QByteArray& sql);
    /// Runs statements that give no rows.
    void execute(const QByteArray& sql);

    /// Runs a statement that changes what the file keeps of its tables, within a transaction: no row is
    /// moved. \throws Error NotSupported when it changes nothing.
    void rewriteSchema(const QByteArray& sql);

    /// Calls a function at the first row that a commit changes.
    void onFirstRow(std::function<void()> told);
    /// Keeps as many pages of the file as a connection may that stays open, 16 MiB.
    void useLittleMemory();
    /// Puts all pages of another file in the place of this one's, in one commit.
    void takeFrom(Connection& other, const std::function<void(double part)>& progress);

    void forget() { m_statements.clear(); } ///< What was prepared.
    /// Whether the tables have changed since the last call, or since the connection was opened.
    bool schemaChanged();
    /// Whether SQLite has had to prepare a statement anew since the last call.
    bool takeReprepared() { return std::exchange(m_reprepared, false); }
    void noteReprepared() { m_reprepared = true; }

    bool inTransaction() const;
    bool isWriting() const; ///< A transaction has a write lock.
    qint64 changes() const; ///< Rows written by the last statement.
    qint64 writes() const;  ///< Rows written since the connection was opened.
    qint64 lastRow() const;
    std::array<qint64, 3> changeCounters(); ///< Of others' commits, of our rows, of definitions.

private:
    void configure(Mode mode);
    void rebuildIndices();
    qint64 schemaVersion();
    qint64 numberOf(const QByteArray& sql); ///< The first figure that the statement gives.

    struct Closer {
        void operator()(sqlite3* handle) const;
    };

    QString m_path;
    std::unique_ptr<sqlite3, Closer> m_handle;
    QCache<QByteArray, Statement> m_statements;
    qint64 m_schemaVersion = 0;
    bool m_reprepared = false;
    std::function<void()> m_onFirstRow;
    bool m_changesRows = false; // in the transaction that is open
};

} // namespace jet::sqlite
