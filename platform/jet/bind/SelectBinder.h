#pragma once

#include "platform/jet/bind/ExpressionBinder.h"
#include "platform/jet/bind/Table.h"
#include "platform/jet/sql/Tree.h"

#include <vector>

namespace jet::bind {

/// A SELECT whose names have found their tables.
struct BoundSelect {
    std::vector<TablePtr> tables; ///< One per source of `tree.from`.
    std::vector<OutputColumn> columns;
    sql::Select tree;     ///< Its items are emptied into `columns`; everything else is bound in place.
    bool grouped = false; ///< Has GROUP BY or aggregates.

    /// Whether a row of the result is a row of one table, so that it can be found again by its key.
    bool isKeyed() const { return tables.size() == 1 && !grouped && !tree.distinct; }
};

/// \throws Error UnknownTable, TooFewParameters (with the number of unknown names), AmbiguousColumn,
/// DuplicateAlias, CircularAlias, NotInAggregate, OrderByConflictsWithDistinct, TypeMismatch and what
/// ExpressionBinder throws.
BoundSelect bindSelect(sql::Select select, const TableLookup& lookup);

/// The table of that name. \throws Error UnknownTable.
TablePtr requireTable(const TableLookup& lookup, const QString& name, qsizetype position = -1);

/// Refuses a statement with unknown names, which the engine takes for parameters that nobody filled.
void requireKnown(const QSet<QString>& unknown);

} // namespace jet::bind
