#pragma once

#include "platform/jet/value/Functions.h"

#include <QByteArray>

struct sqlite3;

namespace jet::sqlite {

/// The name of a function of the dialect here: SQLite's own where that means the same.
QByteArray calledHere(const Function& function);

/// Makes those known to a connection that SQLite does not have, and what the dialect's operators need.
void registerFunctions(sqlite3* connection);

} // namespace jet::sqlite
