#pragma once

#include <QString>

namespace sys {

/// The text without the blanks at its ends, as the family's programs and databases trim: tabs, line breaks
/// and other white space stay.
QString trimBlanks(const QString& text);

} // namespace sys
