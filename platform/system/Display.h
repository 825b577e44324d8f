#pragma once

namespace sys {

/// Whether a QApplication of these arguments can show windows. Qt ends a program that makes one without a display, or with
/// one that does not answer; so a copy of this process tries it first, for some 50 ms. Before any thread is started only.
bool hasDisplay(int argc, char** argv);

} // namespace sys
