#pragma once

#include <QString>

namespace sys {

/// The program's name, as the common error report gives it.
inline constexpr QStringView ApplicationName = u"ZABLAGER";

/// The version of the program, its library and its package: "1.2.3".
QString applicationVersion();

/// The title of message boxes; the program's name until the main screen has set its own.
QString applicationTitle();
void setApplicationTitle(const QString& title);

} // namespace sys
