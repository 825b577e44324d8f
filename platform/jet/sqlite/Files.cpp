#include "platform/jet/sqlite/Files.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sqlite/File.h"
#include "platform/system/FileIdentity.h"

#include <zablager/DatabaseError.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

std::unique_ptr<store::Connection> Files::open(const QString& path, int lockTimeout)
{
    return std::make_unique<File>(path, Connection::Mode::Existing, lockTimeout);
}

std::unique_ptr<store::Connection> Files::create(const QString& path, int lockTimeout)
{
    try {
        return std::make_unique<File>(path, Connection::Mode::New, lockTimeout);
    } catch (const Error&) {
        QFile::remove(path); // a half-made file would be taken for a damaged one
        throw;
    }
}

void Files::settle(const QString& path, int lockTimeout)
{
    const QString journal = path + u"-journal"_s;
    if (!QFile::exists(journal)) return;
    if (!QFile::exists(path)) {
        QFile::remove(journal); // its file was deleted; the next one of that name must not be mistaken for it
        return;
    }
    // Left by a program that was killed while it wrote. It belongs to the file as it is now: opening rolls it
    // back, so that neither a copy of the file is half a booking nor the journal is rolled back into the next
    // file of that name.
    try {
        open(path, lockTimeout);
    } catch (const Error& error) {
        if (error.number() != ErrorNumber::UnknownFormat) throw;
        // Beside what is no database it means nothing. Another program's database may need it.
        if (!sys::readStart(path, 15).startsWith("SQLite format 3")) QFile::remove(journal);
    }
}

namespace {

/// A file that went away meanwhile is seen by whoever looks whether it changed.
void copyBytes(const QString& from, const QString& into)
{
    if (QFile::copy(from, into) || !QFile::exists(from)) return;
    QFile::remove(into);
    const bool isReadable = QFile(from).open(QIODevice::ReadOnly);
    raiseOfFile(isReadable ? ErrorNumber::DiskFull : ErrorNumber::CannotOpenFile, isReadable ? into : from);
}

} // namespace

/// A commit changes the file or deletes the journal beside it: what lay there unchanged before and after
/// is whole.
void Files::copyUnopened(const QString& from, const QString& into)
{
    constexpr int Attempts = 100;
    const QString journal = u"-journal"_s;
    const auto state = [&] { return std::pair(sys::identify(from), sys::identify(from + journal)); };
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const auto before = state();
        remove(into);
        copyBytes(from, into);
        if (before.second) copyBytes(from + journal, into + journal);
        if (before == state()) return;
    }
    raiseOfFile(ErrorNumber::Locked, from);
}

void Files::remove(const QString& path)
{
    if (!QFile::remove(path) && QFile::exists(path)) raiseOfFile(ErrorNumber::CannotOpenFile, path);
    QFile::remove(path + u"-journal"_s);
}

void Files::copy(const QString& from, const QString& into, int lockTimeout, const store::Progress& progress)
{
    const bool isNew = !QFile::exists(into);
    try {
        Connection source(from, Connection::Mode::Existing, lockTimeout);
        Connection target(into, isNew ? Connection::Mode::New : Connection::Mode::Existing, lockTimeout);
        target.takeFrom(source, progress);
    } catch (const Error&) {
        if (isNew) remove(into);
        throw;
    }
}

} // namespace jet::sqlite
