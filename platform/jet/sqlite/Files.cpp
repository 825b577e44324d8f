#include "platform/jet/sqlite/Files.h"

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

} // namespace jet::sqlite
