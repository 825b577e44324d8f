#pragma once

#include "platform/jet/bind/SelectBinder.h"

namespace jet::bind {

/// An INSERT, UPDATE or DELETE whose names have found their table.
struct BoundInsert {
    TablePtr table;
    std::vector<int> columns; ///< Of the table, in the order of the values.
    std::vector<sql::ExpressionPtr> values;
    std::optional<BoundSelect> select; ///< Instead of values.
    bool isNew = false; ///< The table was made for these rows: it takes the columns of others as they are.
};

struct BoundUpdate {
    TablePtr table;
    std::vector<int> columns;
    std::vector<sql::ExpressionPtr> values; ///< Right sides; they see the row as it was.
    sql::ExpressionPtr where;
};

struct BoundDelete {
    TablePtr table;
    sql::ExpressionPtr where;
};

/// \throws Error UnknownTable, UnknownInsertColumn, WrongColumnCount, DuplicateAlias for a column named
/// twice.
BoundInsert bindInsert(sql::Insert insert, const TableLookup& lookup);
/// \throws Error UnknownTable, TooFewParameters, DuplicateAlias, FieldNotUpdatable for a counter.
BoundUpdate bindUpdate(sql::Update update, const TableLookup& lookup);
/// \throws Error UnknownTable, TooFewParameters.
BoundDelete bindDelete(sql::Delete statement, const TableLookup& lookup);

} // namespace jet::bind
