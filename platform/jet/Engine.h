#pragma once

#include "platform/jet/Database.h"

#include <zablager/DatabaseError.h>

#include <QString>

#include <functional>
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

    /// Copies what a file holds, as it was last committed and while others use it. A target that is there
    /// holds that in the place of its own rows then, in one commit, and whoever has it open sees it; one
    /// that is not is made, whole or not at all. \param progress is told the part that is done, 0 to 1.
    /// \throws Error Locked, DiskFull, FileNotFound, UnknownFormat, CannotOpenFile.
    void CopyDatabase(const QString& source, const QString& target,
                      const std::function<void(double part)>& progress = {});
    /// Copies a file as it lies there, whole or not, to a place of the caller's own, where it can be
    /// looked at: opening a file may finish in it what a killed program has left, this changes no byte.
    /// \throws Error Locked while others keep writing, CannotOpenFile; sys::FileError while this process
    /// writes into it.
    void CopyUnopened(const QString& source, const QString& target);
    /// Deletes a file that no Database uses, with what lies beside it. \throws Error CannotOpenFile;
    /// sys::FileError while it is written into.
    void DeleteDatabase(const QString& path);

    /// Hands a function the local path of each file of which rows are about to change, each time: before a
    /// write begins, and where nobody knew before at its first row. It may read and copy the file as it
    /// was, and must not throw.
    void setBeforeChange(std::function<void(const QString& path)> told);

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
