#pragma once

#include "platform/jet/bind/ActionBinder.h"
#include "platform/jet/bind/DefinitionBinder.h"
#include "platform/jet/store/Statements.h"

#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace jet::store {

/// What the engine keeps in a file beside the tables: a link, the password, the version of the schema.
struct Note {
    QString kind;
    QString name;
    QString first;
    QString second;
};

/// A value for a column of a table, by the column's number there.
struct Cell {
    int column;
    Value value;
};

/// An open file: what keeps its tables and runs bound statements on them. All that the dialect means is
/// decided above; what a refusal says is the dialect's, too. Every call may throw Error Locked, DiskFull,
/// DiskError, ReadOnly, UnknownFormat, and what it throws has changed nothing.
class Connection {
public:
    virtual ~Connection() = default;

    virtual QString path() const = 0;
    virtual bool isWritable() const = 0;
    virtual void setLockTimeout(int milliseconds) = 0;

    // What the file holds. `file` is 0 for this one and else the number of an attached one.
    virtual QStringList tables(int file = 0) = 0; ///< As they are stored; no table of the store's own.
    /// \param name as it is stored.
    virtual bind::TablePtr table(const QString& name, int file = 0) = 0;
    virtual bool hasIndex(const QString& table, const QString& index) = 0;
    virtual bool isReserved(const QString& name) const = 0; ///< No table and no column can be called so.
    virtual std::vector<Note> notes(const QString& kind) = 0;
    virtual void addNote(const Note& note) = 0;
    virtual void removeNote(const QString& kind, const QString& name) = 0;

    /// Makes, changes or drops what a definition says, which fits what the file holds.
    virtual void define(const bind::BoundDefinition& definition, int file = 0) = 0;

    // Statements over tables of this file and of attached ones.
    virtual std::unique_ptr<Query> query(const bind::BoundSelect& select, int parameters) = 0;
    virtual std::unique_ptr<Action> action(const bind::BoundInsert& insert) = 0;
    virtual std::unique_ptr<Action> action(const bind::BoundUpdate& update) = 0;
    virtual std::unique_ptr<Action> action(const bind::BoundDelete& statement) = 0;
    /// \param criterion bound to the columns of a row; `parameters` of its own.
    virtual std::unique_ptr<Test> test(const sql::Expression& criterion, int parameters) = 0;

    // Rows of one table of this file.
    virtual Key insert(const bind::Table& table, const std::vector<Cell>& cells) = 0;
    virtual void change(const bind::Table& table, Key key, const std::vector<Cell>& cells) = 0;
    virtual bool remove(const bind::Table& table, Key key) = 0; ///< Whether there was such a row.

    // Transactions. Without one each write is a commit of its own.
    /// Whether others are kept from writing at once, in each of the files from the first write on, or never.
    enum class Lock { AtOnce, WhenWriting };
    virtual void begin(Lock lock) = 0;
    virtual void commit() = 0; ///< \throws Error also when the disk is full; the transaction then stays open.
    virtual void rollback() = 0;
    virtual void
    beginPart() = 0; ///< Within a transaction what can be taken back by itself, the last begun first.
    virtual void keepPart() = 0;
    virtual void takeBackPart() = 0;
    virtual bool inTransaction() const = 0; ///< A fault of the disk ends one by itself.
    virtual bool isWriting() const = 0;     ///< A transaction keeps others from writing.

    /// Lets statements use the tables of another file by that number, from 1. False: this store cannot, or
    /// not that one.
    virtual bool attach(Connection& other, int file) = 0;
    virtual void detach(int file) = 0;
    /// Makes a table that is seen by this connection alone and gone with detach(), and returns what
    /// statements call it.
    virtual bind::TablePtr lend(const bind::Table& like, int file) = 0;

    /// Calls a function at the first row of this file that a commit changes; what was committed before can
    /// still be read then by another connection. It must not throw and not use this one.
    virtual void onFirstRow(std::function<void()> told) = 0;
    /// What is not whole in the file, in the store's own words; empty: nothing. Reads all of it.
    virtual QStringList faults() = 0;
    virtual qint64 writes() const = 0; ///< Rows written since the connection was opened.
    /// Counters that stand still as long as neither this connection nor another has changed the file.
    virtual std::array<qint64, 3> changeCounters() = 0;
    /// Whether another program has changed the tables since the last call, or since the connection was
    /// opened.
    virtual bool tablesChanged() = 0;
    /// Whether a statement has met changed tables since the last call: nearly free, and never sure.
    virtual bool tablesMayHaveChanged() = 0;
    virtual void forget() = 0; ///< All that was read and prepared, after a change of the tables.
};

} // namespace jet::store
