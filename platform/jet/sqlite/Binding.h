#pragma once

#include "platform/jet/Value.h"

#include <QByteArray>
#include <QString>

struct sqlite3_context;
struct sqlite3_stmt;
struct sqlite3_value;

namespace jet::sqlite {

/// How values lie in a file: truth as -1 or 0, dates as "2024-03-05" or "2024-03-05 13:45:00" (so that the
/// order of the texts is the order of the times), everything else as SQLite has it. These functions alone
/// convert.

/// Column of the row that a statement stands on, read as that type. Null: whatever lies there.
/// \throws Error ConversionFailed when another program has put something there that the type does not hold.
Value columnValue(sqlite3_stmt* statement, int column, Type type);
/// The same of an argument of a function.
Value argumentValue(sqlite3_value* argument, Type type);

void bindValue(sqlite3_stmt* statement, int parameter, const Value& value); ///< Parameters count from 1.
void resultValue(sqlite3_context* context, const Value& value);

QByteArray isoText(const QDateTime& date);

} // namespace jet::sqlite
