#pragma once

#include "platform/jet/TableDef.h"
#include "platform/jet/sql/Tree.h"

#include <QByteArray>

namespace jet::sqlite {

/// A column as CREATE TABLE and ALTER TABLE write it, with the checks that keep its type: the length of a
/// text, no NULL in a truth value. A primary key other than a counter is an index of its own.
QByteArray writeColumn(const sql::ColumnDefinition& column);

/// The column that a declared type of SQLite stands for. `isKey`: it is the table's primary key.
Field readColumnType(const QString& name, const QString& declared, bool isKey);

} // namespace jet::sqlite
