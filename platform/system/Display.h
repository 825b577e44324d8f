#pragma once

namespace sys {

/// Whether a QApplication of these arguments can show windows. Qt ends a program that makes one without a
/// display, or with one that does not answer; so a copy of this process tries it first, for some 50 ms.
/// Before any thread is started only.
bool hasDisplay(int argc, char** argv);

/// Whether somebody reads standard error on a terminal: not of a program that the desktop's menu starts.
bool hasTerminal();

} // namespace sys
