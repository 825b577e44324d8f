#pragma once

struct sqlite3;

namespace jet::sqlite {

/// Makes the engine's comparison of texts known to a connection, under its present name and under any older
/// one that an index may still have (which no statement then uses).
void registerCollation(sqlite3* connection);

} // namespace jet::sqlite
