#pragma once

namespace sys {

/// Whether windows can be shown: a program that makes a QApplication without a display is ended by Qt.
bool hasDisplay();

} // namespace sys
