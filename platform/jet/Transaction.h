#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

namespace jet {

class Database;
class OpenFile;

namespace store {
class ReadScope;
}

/// What belongs together as one commit, from here to commit(): a program that is stopped in between leaves
/// all of it in the file or nothing. One at a time for a Database, and short: other programs wait.
///
/// An error that leaves the scope keeps what was written before it, and the commit is made before anybody can
/// show the error. However the scope is left, no transaction is open afterwards.
class Transaction {
public:
    /// `takenBack`, which must not throw, is called when nothing of it was kept: a full disk or a fault of it
    /// drops all, and so does a commit that fails. \throws Error Locked when another program writes.
    explicit Transaction(Database& database, std::function<void()> takenBack = {});
    ~Transaction();
    Q_DISABLE_COPY_MOVE(Transaction)

    void
    commit(); ///< Durable when it returns. \throws Error DiskFull, DiskError, Locked: nothing was kept then.

private:
    Database& m_database;
    std::function<void()> m_takenBack;
    bool m_ended = false;
};

/// Many questions under one lock, as of one moment: they spare taking it each time. Short: other programs can
/// write, but not commit, meanwhile. Ends with the Database's file still open.
class Reading {
public:
    explicit Reading(Database& database);
    ~Reading();
    Q_DISABLE_COPY_MOVE(Reading)

private:
    std::shared_ptr<OpenFile> m_file; // stays open as long as the lock is held
    std::unique_ptr<store::ReadScope> m_scope;
};

} // namespace jet
