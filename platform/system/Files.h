#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace sys {

/// -1 (all bits set) when a file or directory of that path exists, else 0. No other value ever: callers test
/// both the value and its bitwise complement.
std::int16_t Exist(const QString& path);

/// Names, without their path, of the files that a pattern such as "D:\Daten\B1\Lager.????" matches, in
/// ascending order.
///
/// The classic wildcard rule holds: case does not count, "*" is any run of characters, "?" is one character
/// or, at a dot or at the end of the name, none; so "Lager.????" matches Lager.2024, Lager.ldb and Lager.1,
/// also Lager itself, but not Lager.20245. Wildcards stand in the last component only. A missing directory
/// has no files.
QStringList Dir(const QString& pattern);

/// As Dir, but whatever has such a name counts: directories, and links that lead nowhere.
/// \throws FileError when the directory is there and cannot be listed; the pattern names it.
QStringList DirEntries(const QString& pattern);

/// Copies a file, replacing an existing target. The target is written under another name and takes its own
/// name in one step, so that an interrupted copy leaves no half file. \throws FileError FileNotFound,
/// PathNotFound, AccessDenied, PathAccess, DiskFull.
void FileCopy(const QString& source, const QString& target);

/// Copies a file to where there is none yet; an existing target is left alone, one that another program makes
/// at the same moment too: what it has written there already is kept. (Where the file system knows no hard
/// links, as on memory sticks, a moment remains in which it is not.) No half file, errors as FileCopy.
void CopyWhereMissing(const QString& source, const QString& target);

/// Puts these bytes in the place of what a file held: it is the old one or the new one, whatever happens
/// meanwhile. `path` in the local form. \throws FileError; the old one is then as it was.
void writeWhole(const QString& path, const QByteArray& bytes);

/// A name beside a file under which it can be built: one that nobody else uses.
QString draftName(const QString& path);

/// Deletes one file. \throws FileError FileNotFound, AccessDenied, PathAccess.
void Kill(const QString& path);

/// Hands a function the local path of each file before FileCopy reads or overwrites it or Kill deletes it:
/// whoever keeps files open between two calls lets go of them there. It may be called for a target that does
/// not exist yet.
void beforeFileChange(std::function<void(const QString& path)> letGo);

} // namespace sys
