#include "platform/jet/sqlite/SqliteError.h"

#include "platform/jet/Errors.h"

#include <sqlite3.h>

#include <new>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

constexpr char OwnError[] = "jet:"; // before the number of an Error that one of our functions threw

[[noreturn]] void raiseConstraint(int code, const QString& message)
{
    if (code == SQLITE_CONSTRAINT_NOTNULL) raise(ErrorNumber::ValueRequired, {message.section(u'.', -1)});
    if (code == SQLITE_CONSTRAINT_CHECK) raise(ErrorNumber::FieldTooLong); // no column has another check
    raise(ErrorNumber::DuplicateKey);
}

[[noreturn]] void raiseStatementError(const QString& message)
{
    if (message.startsWith(QLatin1StringView(OwnError)))
        raise(static_cast<ErrorNumber>(message.mid(sizeof OwnError - 1).toInt()));
    const bool tooLarge = message.contains(u"overflow") || message.contains(u"too large") ||
                          message.contains(u"too many") || message.contains(u"too deep");
    if (message == u"integer overflow") raise(ErrorNumber::Overflow);
    if (tooLarge) raise(ErrorNumber::TooComplex);
    raise(ErrorNumber::ReservedError, {message});
}

/// The connection's file, and those that are attached to it while a statement needs them: SQLite does not tell which of
/// them it could not use.
QString filesOf(sqlite3* connection, QString path)
{
    for (int i = 1; const char* const name = sqlite3_db_name(connection, i); ++i) {
        const char* const attached = sqlite3_db_filename(connection, name);
        if (attached && *attached) path += u"' oder '"_s + QString::fromUtf8(attached);
    }
    return path;
}

} // namespace

void resultError(sqlite3_context* context, const Error& error)
{
    const QByteArray text = OwnError + QByteArray::number(static_cast<int>(error.number()));
    sqlite3_result_error(context, text.constData(), static_cast<int>(text.size()));
}

void raiseFailure(sqlite3* connection, const QString& path)
{
    const int code = sqlite3_extended_errcode(connection);
    const QString message = QString::fromUtf8(sqlite3_errmsg(connection));
    const QString files = filesOf(connection, path);
    switch (code & 0xFF) {
    case SQLITE_CONSTRAINT: raiseConstraint(code, message);
    case SQLITE_BUSY:
    case SQLITE_LOCKED: raiseOfFile(ErrorNumber::Locked, files);
    case SQLITE_READONLY: raiseOfFile(ErrorNumber::ReadOnly, files);
    case SQLITE_FULL: raiseOfFile(ErrorNumber::DiskFull, files);
    case SQLITE_IOERR: raiseOfFile(ErrorNumber::DiskError, files);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH: raiseOfFile(ErrorNumber::CannotOpenFile, files);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: raiseOfFile(ErrorNumber::UnknownFormat, files);
    case SQLITE_TOOBIG: raise(ErrorNumber::TooComplex);
    case SQLITE_NOMEM: throw std::bad_alloc();
    default: raiseStatementError(message);
    }
}

} // namespace jet::sqlite
