#pragma once

#include <QString>

namespace sys {

/// A title as a file can be called on every system: "Jahr 2024/25" becomes "Jahr 2024-25". Without a
/// directory or ending.
QString fileNameFor(const QString& title);

} // namespace sys
