#include "platform/jet/TableRows.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sqlite/Names.h"

#include <utility>

namespace jet {

using sqlite::Statement;

TableRows::TableRows(std::shared_ptr<Database::Session> session, std::shared_ptr<sqlite::Plan> plan, sql::Shape shape)
    : KeyedRows(std::move(session), std::move(plan), std::move(shape))
{
    look("min(_rowid_)", {}, Place::Empty);
}

void TableRows::look(const QByteArray& key, const QByteArray& condition, Place otherwise)
{
    leaveRow();
    const auto& table = m_plan->select->tables.front()->name;
    Statement::Run run(connection().prepared("SELECT " + key + " FROM " + sqlite::quoted(table) + condition));
    run.bind(0, Value(m_key));
    m_place = run.step() && !run.value(0, Type::Null).isNull() ? Place::Row : otherwise;
    if (m_place == Place::Row) m_key = run.whole(0);
}

void TableRows::moveFirst()
{
    look("min(_rowid_)", {}, Place::Empty);
    if (m_place == Place::Empty) raise(ErrorNumber::NoCurrentRecord);
}

void TableRows::moveLast()
{
    look("max(_rowid_)", {}, Place::Empty);
    if (m_place == Place::Empty) raise(ErrorNumber::NoCurrentRecord);
}

void TableRows::moveNext()
{
    if (isEof()) raise(ErrorNumber::NoCurrentRecord);
    if (m_place == Place::Before) return moveFirst();
    look("min(_rowid_)", " WHERE _rowid_>?", Place::After);
}

void TableRows::movePrevious()
{
    if (isBof()) raise(ErrorNumber::NoCurrentRecord);
    if (m_place == Place::After) return moveLast();
    look("max(_rowid_)", " WHERE _rowid_<?", Place::Before);
}

void TableRows::findFirst(const QString&)
{
    raise(ErrorNumber::NotSupported); // finding is for dynasets and snapshots
}

qsizetype TableRows::count() const
{
    Statement::Run run(
        connection().prepared("SELECT count(*) FROM " + sqlite::quoted(m_plan->select->tables.front()->name)));
    return run.step() ? static_cast<qsizetype>(run.whole(0)) : 0;
}

bool TableRows::moveToMark(qint64 mark)
{
    const Place before = m_place;
    const qint64 key = std::exchange(m_key, mark);
    look("_rowid_", " WHERE _rowid_=?", before);
    if (m_place == Place::Row && m_key == mark) return true;
    m_key = key;
    return false;
}

qint64 TableRows::currentKey() const
{
    if (m_place == Place::Deleted) raise(ErrorNumber::RecordDeleted);
    if (m_place != Place::Row) raise(ErrorNumber::NoCurrentRecord);
    return m_key;
}

void TableRows::added(qint64)
{
    if (m_place == Place::Empty) m_place = Place::Before; // a first row becomes current by a move only
}

} // namespace jet
