#include "platform/jet/bind/ActionBinder.h"

#include "platform/jet/Errors.h"

#include <algorithm>
#include <numeric>

namespace jet::bind {

namespace {

/// A column that is written twice would silently lose one of its values.
void addTarget(std::vector<int>& columns, int column, const QString& name)
{
    if (std::find(columns.begin(), columns.end(), column) != columns.end()) raise(ErrorNumber::DuplicateAlias, {name});
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
    BoundUpdate bound;
    bound.table = requireTable(lookup, update.table.table, update.table.position);
    std::vector<sql::Source> sources;
    sources.push_back(std::move(update.table));
    const std::vector<TablePtr> tables{bound.table};
    QSet<QString> unknown;
    ColumnBinder binder(sources, tables, unknown);
    for (auto& assignment : update.assignments) {
        const int column = bound.table->find(assignment.column);
        if (column < 0) {
            unknown.insert(assignment.column.toCaseFolded());
            continue;
        }
        if (bound.table->columns[static_cast<std::size_t>(column)].type == Type::Counter)
            raise(ErrorNumber::FieldNotUpdatable, {}, assignment.position);
        binder.bind(assignment.value);
        addTarget(bound.columns, column, assignment.column);
        bound.values.push_back(std::move(assignment.value));
    }
    if (update.where) binder.bindCondition(update.where);
    requireKnown(unknown);
    bound.where = std::move(update.where);
    return bound;
}

BoundDelete bindDelete(sql::Delete statement, const TableLookup& lookup)
{
    BoundDelete bound;
    bound.table = requireTable(lookup, statement.table.table, statement.table.position);
    std::vector<sql::Source> sources;
    sources.push_back(std::move(statement.table));
    const std::vector<TablePtr> tables{bound.table};
    QSet<QString> unknown;
    ColumnBinder binder(sources, tables, unknown);
    if (statement.where) binder.bindCondition(statement.where);
    requireKnown(unknown);
    bound.where = std::move(statement.where);
    return bound;
}

} // namespace jet::bind
