#include "platform/jet/sqlite/SqliteError.h"

#include "platform/jet/Errors.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <new>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

constexpr char OwnError[] = "jet:"; // before number and text of an Error that one of our functions threw

/// The texts of our own checks are those that ColumnType.cpp writes.
[[noreturn]] void raiseCheck(const QString& message)
{
    static const QRegularExpression length(u"length\\(\"(.+)\"\\)<=(\\d+)$"_s);
    static const QRegularExpression truth(u"-\"(.+)\" IN \\(0,1\\)$"_s);
    if (const auto found = length.match(message); found.hasMatch()) {
        const QString text = errorText(ErrorNumber::FieldTooLong) + u" Feld: '"_s + found.captured(1);
        throw Error(ErrorNumber::FieldTooLong,
                    text + u"', höchstens "_s + found.captured(2) + u" Zeichen."_s);
    }
    if (const auto found = truth.match(message); found.hasMatch()) throw noTruthValue(found.captured(1));
    raise(ErrorNumber::ValueNotAllowed, {message.section(u": "_s, 1)});
}

[[noreturn]] void raiseConstraint(int code, const QString& message)
{
    if (code == SQLITE_CONSTRAINT_NOTNULL) raise(ErrorNumber::ValueRequired, {message.section(u'.', -1)});
    if (code == SQLITE_CONSTRAINT_CHECK) raiseCheck(message);
    raise(ErrorNumber::DuplicateKey);
}

[[noreturn]] void raiseOwn(const QString& message)
{
    const QString error = message.mid(sizeof OwnError - 1);
    throw Error(static_cast<ErrorNumber>(error.section(u':', 0, 0).toInt()), error.section(u':', 1));
}

/// What is only said by a text of SQLite's, which is no text for a user.
[[noreturn]] void raiseStatementError(int code, const QString& message, const QString& files)
{
    if (message.startsWith(QLatin1StringView(OwnError))) raiseOwn(message);
    const bool tooLarge = message.contains(u"overflow") || message.contains(u"too large") ||
                          message.contains(u"too many") || message.contains(u"too deep");
    if (message == u"integer overflow") raise(ErrorNumber::Overflow);
    if (tooLarge) raise(ErrorNumber::TooComplex);
    // Figures in the head of a file, of its format and its code of characters.
    if (message == u"unsupported file format" || message.contains(u"text encoding"))
        raiseOfFile(ErrorNumber::UnknownFormat, files);
    if (message.startsWith(u"no such table: ")) // dropped by another program meanwhile
        raise(ErrorNumber::UnknownTable, {message.section(u": "_s, 1).section(u'.', -1)});
    raise(ErrorNumber::ReservedError, {QString::number(code)});
}

/// The connection's file, and those that are attached to it while a statement needs them: SQLite does not
/// tell which of them it could not use.
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
    const QByteArray text =
        OwnError + QByteArray::number(static_cast<int>(error.number())) + ':' + error.text().toUtf8();
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
    default: raiseStatementError(code, message, files);
    }
}

} // namespace jet::sqlite
