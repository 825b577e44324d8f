#pragma once

#include <QString>

namespace sys {

/// The Windows directory; empty where there is none, or where its name has more than 144 characters.
QString WindowsVerzeichnis();

} // namespace sys
