#include "platform/jet/bind/ActionBinder.h"

#include "platform/jet/Errors.h"

#include <algorithm>
#include <numeric>

namespace jet::bind {

namespace {

/// A column that is written twice would silently lose one of its values.
void addTarget(std::vector<int>& columns, int column, const QString& name)
{
    if (std::find(columns.begin(), columns.end(), column) != columns.end())
        raise(ErrorNumber::DuplicateAlias, {name});
    columns.push_back(column);
}

std::vector<int> insertColumns(const sql::Insert& insert, const Table& table)
{
    std::vector<int> columns(table.columns.size());
    std::iota(columns.begin(), columns.end(), 0);
    if (insert.columns.empty()) return columns;
    columns.clear();
    for (const QString& name : insert.columns) {
        const int column = table.find(name);
        if (column < 0) raise(ErrorNumber::UnknownInsertColumn, {name});
        addTarget(columns, column, name);
    }
    return columns;
}

/// The one table of an UPDATE or DELETE, whose columns the expressions of the statement name.
class Target {
public:
    Target(sql::Source source, const TableLookup& lookup)
        : m_tables{requireTable(lookup, source.table, source.position)},
          m_binder(m_sources, m_tables, m_unknown)
    {
        m_sources.push_back(std::move(source));
    }

    const TablePtr& table() const { return m_tables.front(); }
    void bind(sql::ExpressionPtr& expression) { m_binder.bind(expression); }

    /// Number of a column; -1, and noted as an unknown name, without.
    int find(const QString& column)
    {
        const int found = table()->find(column);
        if (found < 0) m_unknown.insert(column.toCaseFolded());
        return found;
    }

    /// The bound condition, which may be null. It is the last to be bound: unknown names are refused here.
    sql::ExpressionPtr condition(sql::ExpressionPtr where)
    {
        if (where) m_binder.bindCondition(where);
        requireKnown(m_unknown);
        return where;
    }

private:
    std::vector<sql::Source> m_sources;
    std::vector<TablePtr> m_tables;
    QSet<QString> m_unknown;
    ColumnBinder m_binder;
};

} // namespace

BoundInsert bindInsert(sql::Insert insert, const TableLookup& lookup)
{
    BoundInsert bound;
    bound.table = requireTable(lookup, insert.table);
    bound.columns = insertColumns(insert, *bound.table);
    if (insert.select) {
        bound.select = bindSelect(std::move(*insert.select), lookup);
        if (bound.select->columns.size() != bound.columns.size()) raise(ErrorNumber::WrongColumnCount);
        return bound;
    }
    if (insert.values.size() != bound.columns.size()) raise(ErrorNumber::WrongColumnCount);
    const std::vector<sql::Source> noSources;
    const std::vector<TablePtr> noTables;
    QSet<QString> unknown;
    ColumnBinder binder(noSources, noTables, unknown);
    for (auto& value : insert.values)
        binder.bind(value);
    requireKnown(unknown);
    bound.values = std::move(insert.values);
    return bound;
}

BoundUpdate bindUpdate(sql::Update update, const TableLookup& lookup)
{
    Target target(std::move(update.table), lookup);
    BoundUpdate bound;
    bound.table = target.table();
    for (auto& assignment : update.assignments) {
        const int column = target.find(assignment.column);
        if (column < 0) continue;
        if (bound.table->columns[static_cast<std::size_t>(column)].type == Type::Counter)
            raise(ErrorNumber::FieldNotUpdatable, {}, assignment.position);
        target.bind(assignment.value);
        addTarget(bound.columns, column, assignment.column);
        bound.values.push_back(std::move(assignment.value));
    }
    bound.where = target.condition(std::move(update.where));
    return bound;
}

BoundDelete bindDelete(sql::Delete statement, const TableLookup& lookup)
{
    Target target(std::move(statement.table), lookup);
    return {target.table(), target.condition(std::move(statement.where))};
}

} // namespace jet::bind
