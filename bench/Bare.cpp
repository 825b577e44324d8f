#include "bench/Bare.h"

#include "platform/jet/sqlite/Names.h"

#include <sqlite3.h>

#include <stdexcept>

namespace {

constexpr int LockTimeout = 5000; // as the engine waits

[[noreturn]] void fail(sqlite3* file)
{
    throw std::runtime_error(sqlite3_errmsg(file));
}

} // namespace

BareFile::BareFile(const QString& path)
    : m_connection(path, jet::sqlite::Connection::Mode::Existing, LockTimeout)
{}

void BareFile::execute(const char* sql)
{
    if (sqlite3_exec(m_connection.handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(m_connection.handle());
}

BareStatement::BareStatement(BareFile& file, QByteArray sql) : m_file(file.m_connection.handle())
{
    sql.replace("%C", "COLLATE " + jet::sqlite::collationName());
    const int size = static_cast<int>(sql.size()) + 1;
    if (sqlite3_prepare_v3(m_file, sql.constData(), size, SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr) !=
        SQLITE_OK)
        fail(m_file);
}

BareStatement::~BareStatement()
{
    sqlite3_finalize(m_statement);
}

void BareStatement::bind(int parameter, const QByteArray& text)
{
    sqlite3_bind_text(m_statement, parameter, text.constData(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void BareStatement::bind(int parameter, double number)
{
    sqlite3_bind_double(m_statement, parameter, number);
}

void BareStatement::bind(int parameter, qint64 number)
{
    sqlite3_bind_int64(m_statement, parameter, number);
}

void BareStatement::bindNull(int parameter)
{
    sqlite3_bind_null(m_statement, parameter);
}

bool BareStatement::step()
{
    const int code = sqlite3_step(m_statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) fail(m_file);
    return code == SQLITE_ROW;
}

void BareStatement::reset()
{
    sqlite3_reset(m_statement);
}

void BareStatement::run()
{
    step();
    reset();
}

double BareStatement::number(int column) const
{
    return sqlite3_column_double(m_statement, column);
}

qint64 BareStatement::whole(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

QByteArray BareStatement::text(int column) const
{
    const std::string_view bytes = view(column);
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

std::string_view BareStatement::view(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column))};
}

bool BareStatement::isNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}
