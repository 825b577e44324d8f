#pragma once

#include <QByteArray>

#include <string_view>

namespace jet {

/// The one comparison of texts: German order, for equality, sorting, groups and indices alike.
///
/// Case and trailing blanks do not count. Accents and umlauts count, but only where the letters are otherwise
/// equal: ä stands among a. ß is ss. Hyphen, apostrophe, soft hyphen and control characters count last of
/// all. Otherwise blank before punctuation before digits before letters; digits are characters, so 10 stands
/// before 9. \param left, right UTF-8. \returns below, at or above 0.
int compareTexts(std::string_view left, std::string_view right);

/// Of the tables that the order of letters comes from: texts that were sorted under another may stand
/// otherwise.
QByteArray collationVersion();

} // namespace jet
