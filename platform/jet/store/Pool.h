#pragma once

#include "platform/jet/Engine.h"
#include "platform/jet/store/Session.h"
#include "platform/jet/store/Store.h"
#include "platform/system/FileIdentity.h"

#include <list>

namespace jet {

/// The engine's open files: one per file and connect text, also while no Database uses them.
class Engine::Pool {
public:
    explicit Pool(std::unique_ptr<store::Store> store) : m_store(std::move(store)) {}

    /// A file, open already or opened now. \throws Error as Engine::OpenDatabase.
    std::shared_ptr<OpenFile> open(const QString& path, const QString& connect);
    /// Throws what opening a file would; one that is gone is left to whoever has it open.
    void requireDatabase(const QString& path) const;
    std::shared_ptr<OpenFile> create(const QString& path, const QString& locale);
    /// Takes a file back that its last user lets go.
    void giveBack(std::shared_ptr<OpenFile> file);
    /// Closes a file that is unused; an empty path: all unused ones.
    void release(const QString& path);
    /// Makes a file ready to be copied, replaced or deleted. `path` in the local form.
    void prepareForChange(const QString& path);

    void copy(const QString& source, const QString& target,
              const std::function<void(double)>& progress) const;
    void copyUnopened(const QString& source, const QString& target) const;
    void remove(const QString& path);

    void setBeforeChange(std::function<void(const QString& path)> told);

    int lockTimeout() const { return m_lockTimeout; }
    void setLockTimeout(int milliseconds);

private:
    struct Entry {
        QString connect;
        std::shared_ptr<OpenFile> file;
        sys::FileIdentity left; ///< The file as its last user left it.
        qint64 writes = 0;      ///< The connection's count of written rows at that time.
        bool isUsed() const { return file.use_count() > 1; }
    };

    std::shared_ptr<OpenFile> known(const QString& path, const QString& connect,
                                    const sys::FileIdentity& now);
    std::shared_ptr<OpenFile> connected(const QString& path) const;
    void tellChanges(OpenFile& file) const;
    void requireNoWriting(const QString& path) const;
    void dropOldest();

    std::unique_ptr<store::Store> m_store;
    std::list<Entry> m_entries; // the last used first
    int m_lockTimeout = 5000;
    std::function<void(const QString& path)> m_beforeChange;
};

} // namespace jet
