#pragma once

#include "platform/jet/store/Connection.h"

#include <QString>

#include <functional>
#include <memory>

namespace jet::store {

using Progress = std::function<void(double part)>;

/// What opens and makes files. Paths are local ones.
class Store {
public:
    virtual ~Store() = default;

    /// \throws Error UnknownFormat when it is no file of this store, CannotOpenFile, Locked.
    virtual std::unique_ptr<Connection> open(const QString& path, int lockTimeout) = 0;
    /// A file that was not there. What is half made is removed. \throws Error CannotOpenFile, DiskFull.
    virtual std::unique_ptr<Connection> create(const QString& path, int lockTimeout) = 0;
    /// Makes a file ready to be copied, replaced or deleted: what a program that was killed has left beside
    /// it is done.
    virtual void settle(const QString& path, int lockTimeout) = 0;
    /// Copies a file as it lies there, with what a program that was killed has left beside it, to a place
    /// of our own: not a byte of it changes, be it damaged or half written. \throws Error Locked while
    /// others keep writing, CannotOpenFile, DiskFull.
    virtual void copyUnopened(const QString& from, const QString& into) = 0;
    /// Deletes a file and what this store keeps beside it. \throws Error CannotOpenFile.
    virtual void remove(const QString& path) = 0;
    /// Puts what one file holds, as it was last committed, into another: into a new one, of which nothing
    /// stays when that fails, or in the place of all that it held, in one commit. Others go on reading
    /// both, and whoever has the second one open sees the new rows. \param progress is told the part that
    /// is done, 0 to 1. \throws Error Locked, DiskFull, UnknownFormat, CannotOpenFile.
    virtual void copy(const QString& from, const QString& into, int lockTimeout,
                      const Progress& progress) = 0;
};

} // namespace jet::store
