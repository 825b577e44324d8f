#pragma once

#include "platform/jet/Engine.h"
#include "platform/jet/Session.h"
#include "platform/system/FileIdentity.h"

#include <list>

namespace jet {

/// The engine's open connections: one per file and connect text, also while no Database uses them.
class Engine::Pool {
public:
    /// The connection to a file, an open one or a new one. \throws Error as Engine::OpenDatabase.
    std::shared_ptr<sqlite::Connection> open(const QString& path, const QString& connect);
    /// Throws what opening a file would; one that is gone is left to whoever has it open.
    void requireDatabase(const QString& path) const;
    std::shared_ptr<sqlite::Connection> create(const QString& path, const QString& locale);
    /// Takes a connection back that its last user lets go.
    void giveBack(std::shared_ptr<sqlite::Connection> connection);
    /// Closes the unused connections to a file; an empty path: all unused ones.
    void release(const QString& path);
    /// Makes a file ready to be copied, replaced or deleted. `path` in the local form.
    void prepareForChange(const QString& path);

    int lockTimeout() const { return m_lockTimeout; }
    void setLockTimeout(int milliseconds);

private:
    struct Entry {
        QString connect;
        std::shared_ptr<sqlite::Connection> connection;
        sys::FileIdentity left; ///< The file as its last user left it.
        qint64 writes = 0;      ///< The connection's count of written rows at that time.
        bool isUsed() const { return connection.use_count() > 1; }
    };

    std::shared_ptr<sqlite::Connection> known(const QString& path, const QString& connect,
                                              const sys::FileIdentity& now);
    std::shared_ptr<sqlite::Connection> connected(const QString& path) const;
    void dropOldest();

    std::list<Entry> m_entries; // the last used first
    int m_lockTimeout = 5000;
};

} // namespace jet
