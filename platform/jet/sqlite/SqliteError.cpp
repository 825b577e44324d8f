#include "platform/jet/sqlite/SqliteError.h"

#include "platform/jet/Errors.h"

#include <sqlite3.h>

#include <new>

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
    switch (code & 0xFF) {
    case SQLITE_CONSTRAINT: raiseConstraint(code, message);
    case SQLITE_BUSY:
    case SQLITE_LOCKED: raiseOfFile(ErrorNumber::Locked, path);
    case SQLITE_READONLY: raiseOfFile(ErrorNumber::ReadOnly, path);
    case SQLITE_FULL: raiseOfFile(ErrorNumber::DiskFull, path);
    case SQLITE_IOERR: raiseOfFile(ErrorNumber::DiskError, path);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH: raiseOfFile(ErrorNumber::CannotOpenFile, path);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: raiseOfFile(ErrorNumber::UnknownFormat, path);
    case SQLITE_TOOBIG: raise(ErrorNumber::TooComplex);
    case SQLITE_NOMEM: throw std::bad_alloc();
    default: raiseStatementError(message);
    }
}

} // namespace jet::sqlite
