#pragma once

#include <QByteArray>

#include <string_view>

struct sqlite3;

namespace jet::sqlite {

/// The one comparison of texts: German order, for equality, sorting, groups and indices alike.
///
/// Case and trailing blanks do not count. Accents and umlauts count, but only where the letters are otherwise equal:
/// ä stands among a. ß is ss. Hyphen, apostrophe, soft hyphen and control characters count last of all. Otherwise blank
/// before punctuation before digits before letters; digits are characters, so 10 stands before 9.
/// \param left, right UTF-8. \returns below, at or above 0.
int compareTexts(std::string_view left, std::string_view right);

/// Makes the collation known to a connection, under its present name and under any older one that an index may still
/// have (which no statement then uses).
void registerCollation(sqlite3* connection);

} // namespace jet::sqlite
