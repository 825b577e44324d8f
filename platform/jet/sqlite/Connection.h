#pragma once

#include "platform/jet/bind/Table.h"
#include "platform/jet/sqlite/Catalogue.h"
#include "platform/jet/sqlite/LruCache.h"
#include "platform/jet/sqlite/Statement.h"

#include <QByteArray>
#include <QString>

#include <memory>

struct sqlite3;

namespace jet::sqlite {

struct Plan;

/// An open SQLite file with the dialect's functions and collation, its catalogue and its prepared statements.
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

    Catalogue& catalogue() { return m_catalogue; }
    const Catalogue& catalogue() const { return m_catalogue; }

    /// The prepared statement of that text; the last ones used are kept.
    Statement& prepared(const QByteArray& sql);
    /// The plans of the statements used last, by the key of their shape.
    LruCache<QString, std::shared_ptr<Plan>>& plans() { return m_plans; }
    /// Runs statements that give no rows.
    void execute(const QByteArray& sql);

    /// Forgets all that was read and prepared, after a change of the schema.
    void forget();
    /// Forgets it when another program has changed the schema since. \returns whether that is so.
    bool forgetIfChanged();
    /// The same, but only looked into when SQLite has had to prepare a statement anew since the last call: nearly free.
    bool forgetIfNoticed();
    void noteReprepared() { m_reprepared = true; }

    bool inTransaction() const;
    bool isWriting() const; ///< A transaction has a write lock.
    qint64 changes() const; ///< Rows written by the last statement.
    qint64 writes() const;  ///< Rows written since the connection was opened.
    qint64 lastRow() const;

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
    Catalogue m_catalogue;
    LruCache<QByteArray, std::unique_ptr<Statement>> m_statements;
    // Shared: a recordset keeps its plan while newer ones push it out of the cache.
    LruCache<QString, std::shared_ptr<Plan>> m_plans;
    qint64 m_schemaVersion = 0;
    bool m_reprepared = false;
};

/// A write of several statements that is done as a whole: undone when it ends without commit(), also as a part of a
/// transaction that is open already.
class WriteScope {
public:
    /// Whether others are kept from writing at once or, in each of the files, from the first write on.
    enum class Lock { AtOnce, WhenWriting };
    explicit WriteScope(Connection& connection, Lock lock = Lock::AtOnce);
    ~WriteScope();
    Q_DISABLE_COPY_MOVE(WriteScope)
    void commit();

private:
    Connection& m_connection;
    bool m_nested;
    bool m_done = false;
};

/// Several reads under one lock, which sees to it that others write before or after all of them. Not for long: they wait.
class ReadScope {
public:
    explicit ReadScope(Connection& connection);
    ~ReadScope();
    Q_DISABLE_COPY_MOVE(ReadScope)

private:
    Connection& m_connection;
    bool m_nested;
};

} // namespace jet::sqlite
