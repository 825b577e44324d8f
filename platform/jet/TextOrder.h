#pragma once

#include <QString>

namespace jet {

/// The engine's own comparison of texts, by which it sorts, groups and finds: German order, without regard to
/// case and blanks at the end. \returns below, at or above 0.
int compareTexts(const QString& left, const QString& right);

} // namespace jet
