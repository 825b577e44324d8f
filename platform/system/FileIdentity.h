#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace sys {

/// What tells one state of a file from another without opening it.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t changed = 0; ///< Nanoseconds since 1970; no program can set it back.
    bool isDirectory = false;
    bool isFile = false; ///< A regular one: no pipe, which might never end, and no device.

    bool operator==(const FileIdentity&) const = default;
    bool sameFile(const FileIdentity& other) const { return device == other.device && inode == other.inode; }
};

/// No value: there is no such file. `path` in the local form.
std::optional<FileIdentity> identify(const QString& path);
std::optional<FileIdentity> identify(int descriptor); ///< Of an open file.

/// The first bytes of a file; fewer when it is shorter or cannot be read. Closing the file drops the locks
/// that this process holds on it: for files that are no database of ours only.
QByteArray readStart(const QString& path, qsizetype count);

} // namespace sys
