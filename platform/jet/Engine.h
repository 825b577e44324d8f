#pragma once

#include "platform/jet/Database.h"

#include <zablager/DatabaseError.h>

#include <QString>

#include <memory>

namespace jet {

namespace store {
class Store;
}
class OpenFile;

/// Opens and creates database files. Files stay open after the last Close of a Database, once per file and
/// connect text, until the file is found to have changed behind our back or is about to be copied or deleted.
class Engine {
public:
    Engine(); ///< Over the store that comes with it.
    explicit Engine(std::unique_ptr<store::Store> store);
    ~Engine();
    Q_DISABLE_COPY_MOVE(Engine)

    /// Opens an existing file, never exclusively; nothing is ever created by opening. A file that may not be
    /// written is opened for reading.
    ///
    /// `connect` is "[type];key=value;...", of which only the type word and `pwd` are looked at:
    /// ";pwd=secret", "MS Access;PWD=secret". A file without a password opens with any text. \throws Error
    /// FileNotFound, PathNotFound, CannotOpenFile, UnknownFormat, WrongPassword, UnknownDatabaseType, Locked.
    std::unique_ptr<Database> OpenDatabase(const QString& path, const QString& connect = {});

    /// Creates an empty file. `locale` is a text such as ";LANGID=0x0409;CP=1252;COUNTRY=0", of which only
    /// `pwd`, the password to be set, is looked at. \throws Error DatabaseExists, PathNotFound,
    /// CannotOpenFile.
    std::unique_ptr<Database> CreateDatabase(const QString& path, const QString& locale);

    /// Milliseconds to wait for a lock of another program before Locked is thrown; 5000 at start.
    int LockTimeout() const;
    void setLockTimeout(int milliseconds);

    /// Closes a file that no Database uses; an empty path: all files.
    void release(const QString& path = {});

private:
    friend Engine& engine();
    class Pool;
    std::unique_ptr<Database> database(std::shared_ptr<OpenFile> file);
    std::unique_ptr<Pool> m_pool;
};

/// The engine of this process.
Engine& engine();

} // namespace jet
