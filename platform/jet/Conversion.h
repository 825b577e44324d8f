#pragma once

#include "platform/jet/Value.h"

#include <QStringView>

#include <optional>

namespace jet {

/// A value as a column of this type takes it, by German rules: "1,5" is 1.5, "1.5" is 15 (the dot groups),
/// 0.25 is "0,25", whole numbers are rounded half to even. NULL stays NULL, but a Boolean column holds false
/// instead. \throws Error ConversionFailed when the text is no number, date or truth value, the number too
/// large for a whole one, or a text holds the character 0; Overflow when a number is infinite or none.
Value convert(const Value& value, Type to);

/// A number as text: decimal comma, no grouping, at most 15 significant digits, "1E+15" from there on.
QString numberText(double value);
/// A date as text: "05.03.2024", with " 13:45:00" only when the time is not midnight; day 0 shows its time
/// alone.
QString dateText(const QDateTime& value);

/// German number text: sign, digits grouped by dots, decimal comma, exponent. No value: not a number.
std::optional<double> readNumber(QStringView text);
/// German date text, strictly day.month.year (two or four digits; 00-29 are 20xx), optionally "
/// hours:minutes[:seconds]".
std::optional<QDateTime> readDate(QStringView text);

/// The year meant by a year of two digits: 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999; any other as
/// it is.
int fullYear(int year);

/// Days since 30.12.1899 with the time of day as fraction, which counts forward also before that day: -1.25
/// is 29.12.1899 06:00.
double dayNumber(const QDateTime& value);
QDateTime fromDayNumber(double day); ///< \throws Error Overflow outside the years 100 to 9999.

} // namespace jet
