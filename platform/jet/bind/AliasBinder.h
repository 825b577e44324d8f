#pragma once

#include "platform/jet/bind/ExpressionBinder.h"

namespace jet::bind {

/// Names in a select list: a name without a table is another alias of the list before it is a column, and an
/// alias that takes part in its own expression is circular.
class AliasBinder : public ColumnBinder {
public:
    AliasBinder(std::vector<sql::SelectItem>& items, const std::vector<sql::Source>& sources,
                const std::vector<TablePtr>& tables, QSet<QString>& unknown)
        : ColumnBinder(sources, tables, unknown), m_items(items), m_states(items.size(), State::Unbound)
    {
        aggregatesAllowed = true;
    }

    /// The bound expression of an item. \throws Error CircularAlias, TooComplex.
    sql::ExpressionPtr take(std::size_t item);

protected:
    void bindColumn(sql::ExpressionPtr& column) override;

private:
    enum class State : quint8 { Unbound, InProgress, Bound };
    void bindItem(std::size_t item);

    std::vector<sql::SelectItem>& m_items;
    std::vector<State> m_states;
    qsizetype m_copiedNodes = 0;
};

} // namespace jet::bind
