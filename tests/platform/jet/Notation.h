#pragma once

#include "platform/jet/Database.h"
#include "platform/jet/TableDef.h"

#include <QString>
#include <QStringView>

#include <vector>

// How values, rows and columns are written in the tests of the engine, going in and coming out alike:
//
//   NULL                      no value
//   12  -0.25  5.5e-17        a number, with a decimal point and at most 15 digits; a truth value is -1 or 0
//   05.03.2024                a date; 05.03.2024 13:45:00 when it has a time of day
//   Weizen                    a text
//   'Weizen  '  ''  '100'     a text that is empty, has blanks at an end or a line break in it, or would read as one
//                             of the above; a quote in it is not doubled, a line break is written \n
//
// A text never has " | " or "; " in it, which stand between the cells of a row and between rows.

QString written(const jet::Value& value);
jet::Value read(QStringView cell); ///< The reverse of written().

/// The fields of a row, the current one of a recordset, joined by " | ".
QString writtenRow(const std::vector<jet::Value>& row);
QString writtenRow(const jet::Recordset& rows);
/// Type of a column as it is declared: "Text(50)", "Counter", "Double".
QString writtenType(const jet::Field& field);
/// Names and types of a statement's columns, joined by ", ".
QString writtenTypes(jet::Database& database, const QString& sql);

/// All rows of a statement, joined by "; "; "-" without.
QString writtenRows(jet::Database& database, const QString& sql, jet::Kind kind = jet::Kind::Default);
