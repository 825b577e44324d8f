#pragma once

struct sqlite3;

namespace jet::sqlite {

/// Makes the functions of the dialect known to a connection, as far as SQLite's own do not mean the same.
void registerFunctions(sqlite3* connection);

} // namespace jet::sqlite
