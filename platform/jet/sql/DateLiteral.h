#pragma once

#include <QDateTime>
#include <QStringView>

#include <optional>

namespace jet::sql {

/// The date between two number signs: "3/31/2024" (month/day/year; first and second number change places when
/// only that gives a date), "2024-03-31" or "2024/3/31" (nothing is guessed), optionally with a time
/// "13:45[:00]" or "1:45[:00] PM"; a time alone is the day 0, 30.12.1899. Two-digit years 00-29 are 20xx,
/// 30-99 are 19xx. No value: not a date of the years 100 to 9999.
std::optional<QDateTime> readDateLiteral(QStringView text);

} // namespace jet::sql
