#pragma once

#include "platform/jet/bind/Table.h"
#include "platform/jet/sql/Tree.h"

#include <functional>

namespace jet::bind {

/// A definition whose names are those that the file has.
struct BoundDefinition {
    sql::Definition definition;
    TablePtr table; ///< That it changes; null where it makes one.
};

/// What a definition is held against.
struct Present {
    TableLookup table;
    std::function<bool(const QString& table)> isLink;
    std::function<bool(const QString& table, const QString& index)> hasIndex;
    std::function<bool(const QString& name)> isReserved; ///< By what keeps the file.
};

/// \throws Error TableExists, ColumnExists, IndexExists, NoSuchTable, ObjectNotFound, InvalidName.
BoundDefinition bindDefinition(sql::Definition definition, const Present& present);

/// A table that is made for rows, whose columns are called as theirs. \throws Error InvalidName,
/// ColumnExists.
void requireNames(const sql::CreateTable& create, const Present& present);

} // namespace jet::bind
