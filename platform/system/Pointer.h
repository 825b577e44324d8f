#pragma once

#include <QtGlobal>

namespace sys {

/// Hourglass, and back. Calls nest: after as many MausNormal as MausWarten the pointer is the normal one
/// again; a MausNormal too many does nothing. Without a QGuiApplication both do nothing.
void MausWarten();
void MausNormal();

/// The normal pointer, however many MausWarten are still open; the MausNormal that belong to them do nothing.
void resetPointer();

/// The hourglass to the end of the block.
class Hourglass {
public:
    Hourglass() { MausWarten(); }
    ~Hourglass() { MausNormal(); }
    Q_DISABLE_COPY_MOVE(Hourglass)
};

} // namespace sys
