#pragma once

#include <QDate>

#include <optional>

namespace sys {

/// Today, by the computer's clock and time zone.
QDate heute();

/// Sets the day that heute() answers; no value: the computer's clock again. For tests.
void stelleUhr(std::optional<QDate> tag);

} // namespace sys
