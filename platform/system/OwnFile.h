#pragma once

#include <QString>

namespace sys {

/// Full name of the file that this code itself was loaded from: the library that a host has loaded, wherever
/// that lies, or the program that the code is linked into.
QString ownFile();

} // namespace sys
