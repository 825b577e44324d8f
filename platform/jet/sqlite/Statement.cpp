#include "platform/jet/sqlite/Statement.h"

#include "platform/jet/sqlite/Binding.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/jet/sqlite/SqliteError.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <sqlite3.h>

#include <utility>

namespace jet::sqlite {

namespace {

QByteArray listText(const std::vector<Value>& values)
{
    QJsonArray list;
    for (const Value& value : values) {
        if (value.type() == Type::Date)
            list.append(QString::fromLatin1(isoText(value.toDateTime())));
        else if (value.type() == Type::Text)
            list.append(value.toText());
        else
            list.append(value.toDouble());
    }
    return QJsonDocument(list).toJson(QJsonDocument::Compact);
}

} // namespace

Statement::Statement(Connection& connection, const QByteArray& sql) : m_connection(connection)
{
    const int code =
        sqlite3_prepare_v3(connection.handle(), sql.constData(), static_cast<int>(sql.size()) + 1,
                           SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr);
    if (code != SQLITE_OK) raiseFailure(connection.handle(), connection.path());
    m_parameters = sqlite3_bind_parameter_count(m_statement);
}

Statement::~Statement()
{
    sqlite3_finalize(m_statement);
}

Statement::Run::~Run()
{
    sqlite3_reset(m_statement.m_statement);
}

void Statement::Run::bind(int parameter, const Value& value)
{
    if (parameter < m_statement.m_parameters) bindValue(m_statement.m_statement, parameter + 1, value);
}

void Statement::Run::bindText(int parameter, const QByteArray& text)
{
    if (parameter < m_statement.m_parameters)
        sqlite3_bind_text64(m_statement.m_statement, parameter + 1, text.constData(),
                            static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool Statement::Run::step()
{
    const int code = sqlite3_step(m_statement.m_statement);
    if (!std::exchange(m_began, true) &&
        sqlite3_stmt_status(m_statement.m_statement, SQLITE_STMTSTATUS_REPREPARE, 1) > 0)
        m_statement.m_connection.noteReprepared();
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) raiseFailure(m_statement.m_connection.handle(), m_statement.m_connection.path());
    return false;
}

Value Statement::Run::value(int column, Type type) const
{
    return columnValue(m_statement.m_statement, column, type);
}

qint64 Statement::Run::whole(int column) const
{
    return sqlite3_column_int64(m_statement.m_statement, column);
}

QByteArray Statement::Run::text(int column) const
{
    const std::string_view bytes = view(column);
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

Statement::Kind Statement::Run::kind(int column) const
{
    switch (sqlite3_column_type(m_statement.m_statement, column)) {
    case SQLITE_NULL: return Kind::Null;
    case SQLITE_INTEGER: return Kind::Whole;
    case SQLITE_FLOAT: return Kind::Real;
    case SQLITE_TEXT: return Kind::Text;
    default: return Kind::Bytes;
    }
}

double Statement::Run::number(int column) const
{
    return sqlite3_column_double(m_statement.m_statement, column);
}

std::string_view Statement::Run::view(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.m_statement, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.m_statement, column))};
}

void bindParameters(Statement::Run& run, const std::vector<std::vector<Value>>& parameters)
{
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const int parameter = static_cast<int>(i);
        if (parameters[i].size() == 1)
            run.bind(parameter, parameters[i].front());
        else
            bindList(run, parameter, parameters[i]);
    }
}

void bindList(Statement::Run& run, int parameter, const std::vector<Value>& values)
{
    run.bindText(parameter, listText(values));
}

} // namespace jet::sqlite
