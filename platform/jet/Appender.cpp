#include "platform/jet/Appender.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/store/Session.h"

using namespace Qt::StringLiterals;

namespace jet {

Appender::Appender(Database& database, const QString& table)
    : m_session(database.m_session), m_table(m_session->use().catalogue().table(table))
{
    if (!m_table) raise(ErrorNumber::ObjectNotFound, {table});
    if (!m_session->use().connection().isWritable()) raise(ErrorNumber::ReadOnly);
}

const std::vector<Field>& Appender::Fields() const
{
    return m_table->columns;
}

void Appender::Add(const std::vector<Value>& row)
{
    std::vector<store::Cell> cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const Field& field = m_table->columns[i];
        try {
            if (!row[i].isNull()) cells.push_back({static_cast<int>(i), convert(row[i], field.type)});
        } catch (const Error& error) {
            throw named(error, u"Feld"_s, field.name);
        }
    }
    m_session->told([&] { m_session->use().connection().insert(*m_table, cells); });
}

} // namespace jet
