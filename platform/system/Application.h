#pragma once

#include <QStringView>

namespace sys {

/// The program's name in the title of its messages and in the common error report.
inline constexpr QStringView ApplicationName = u"ZABLAGER";

} // namespace sys
