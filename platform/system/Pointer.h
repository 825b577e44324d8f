#pragma once

namespace sys {

/// Hourglass, and back. Calls nest: after as many MausNormal as MausWarten the pointer is the normal one again; a
/// MausNormal too many does nothing. Without a QGuiApplication both do nothing.
void MausWarten();
void MausNormal();

} // namespace sys
