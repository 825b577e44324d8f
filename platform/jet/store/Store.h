#pragma once

#include "platform/jet/store/Connection.h"

#include <QString>

#include <memory>

namespace jet::store {

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
};

} // namespace jet::store
