#include "platform/jet/bind/AliasBinder.h"

#include "platform/jet/Errors.h"

#include <numeric>
#include <utility>

namespace jet::bind {

namespace {

// aliases made of aliases double their size from one to the next
constexpr qsizetype MostCopiedNodes = 10'000;

qsizetype countNodes(const sql::Expression& expression)
{
    return std::accumulate(expression.arguments.begin(), expression.arguments.end(), qsizetype{1},
                           [](qsizetype sum, const auto& argument) { return sum + countNodes(*argument); });
}

} // namespace

sql::ExpressionPtr AliasBinder::take(std::size_t item)
{
    bindItem(item);
    return m_items[item].expression->clone(); // later items may still need it
}

void AliasBinder::bindItem(std::size_t item)
{
    if (m_states[item] == State::Bound) return;
    if (m_states[item] == State::InProgress)
        raise(ErrorNumber::CircularAlias, {m_items[item].alias}, m_items[item].position);
    m_states[item] = State::InProgress;
    const bool allowed = std::exchange(aggregatesAllowed, true);
    bind(m_items[item].expression);
    aggregatesAllowed = allowed;
    m_states[item] = State::Bound;
}

void AliasBinder::bindColumn(sql::ExpressionPtr& column)
{
    for (std::size_t item = 0; column->table.isEmpty() && item < m_items.size(); ++item) {
        if (!m_items[item].expression || !sameName(m_items[item].alias, column->name)) continue;
        bindItem(item);
        if (!aggregatesAllowed && containsAggregate(*m_items[item].expression))
            raise(ErrorNumber::AggregateNotAllowed, {column->name}, column->position);
        m_copiedNodes += countNodes(*m_items[item].expression);
        if (m_copiedNodes > MostCopiedNodes) raise(ErrorNumber::TooComplex, {}, column->position);
        column = m_items[item].expression->clone();
        return;
    }
    ColumnBinder::bindColumn(column);
}

} // namespace jet::bind
