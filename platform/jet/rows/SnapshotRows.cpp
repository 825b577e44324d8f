#include "platform/jet/rows/SnapshotRows.h"

#include "platform/jet/Errors.h"
#include "platform/jet/rows/Criterion.h"

namespace jet {

SnapshotRows::SnapshotRows(std::shared_ptr<Database::Session> session, std::shared_ptr<Plan> plan,
                           sql::Shape shape)
    : Rows(std::move(session), std::move(plan), std::move(shape))
{
    read();
}

void SnapshotRows::read()
{
    {
        const auto rows = m_plan->query->rows(m_shape.parameters);
        for (; rows->next(); ++m_count)
            for (std::size_t i = 0; i < fields().size(); ++i)
                m_values.push_back(cell(*rows, static_cast<int>(i)));
    }
    m_plan->others.reset();
}

void SnapshotRows::requireRow() const
{
    if (isBof() || isEof()) raise(ErrorNumber::NoCurrentRecord);
}

void SnapshotRows::moveFirst()
{
    if (m_count == 0) raise(ErrorNumber::NoCurrentRecord);
    m_position = 0;
}

void SnapshotRows::moveLast()
{
    if (m_count == 0) raise(ErrorNumber::NoCurrentRecord);
    m_position = m_count - 1;
}

void SnapshotRows::moveNext()
{
    if (isEof()) raise(ErrorNumber::NoCurrentRecord);
    ++m_position;
}

void SnapshotRows::movePrevious()
{
    if (isBof()) raise(ErrorNumber::NoCurrentRecord);
    --m_position;
}

void SnapshotRows::findFirst(const QString& criterion)
{
    const qsizetype position = findFrom(0, criterion);
    noMatch = position < 0;
    if (!noMatch) m_position = position;
}

qsizetype SnapshotRows::findFrom(qsizetype position, const QString& criterion) const
{
    const auto shape = sql::shapeOf(criterion);
    const auto test = testOf(*m_plan, connection(), shape);
    for (qsizetype i = 0; i < m_count; ++i) {
        const qsizetype place = (position + i) % m_count;
        if (test->meets(shape.parameters, row(place))) return place;
    }
    return -1;
}

qint64 SnapshotRows::mark() const
{
    requireRow();
    return m_position;
}

qint64 SnapshotRows::markAt(qsizetype position) const
{
    if (position < 0 || position >= m_count) raise(ErrorNumber::NoCurrentRecord);
    return position;
}

std::optional<std::vector<Value>> SnapshotRows::valuesAt(qsizetype position,
                                                         const std::vector<int>& columns) const
{
    std::vector<Value> values;
    values.reserve(columns.size());
    for (const int column : columns)
        values.push_back(row(markAt(position))[static_cast<std::size_t>(column)]);
    return values;
}

bool SnapshotRows::moveToMark(qint64 mark)
{
    if (mark < 0 || mark >= m_count) return false;
    m_position = static_cast<qsizetype>(mark);
    return true;
}

Value SnapshotRows::value(int column) const
{
    requireRow();
    return row(m_position)[static_cast<std::size_t>(column)];
}

} // namespace jet
