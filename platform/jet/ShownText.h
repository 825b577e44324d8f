#pragma once

#include "platform/jet/Value.h"

#include <QString>

namespace jet {

/// The format that shows a date without its time.
inline constexpr QStringView DayFormat = u"dd.mm.yyyy";

/// What a list shows of a value, on one line: a date as its day, a number by a format as formatted() reads
/// it, or, with an empty one, as it is.
QString shownText(const Value& value, QStringView format);

} // namespace jet
