#pragma once

#include <QString>

namespace sys {

/// Puts a text on the clipboard, instead of what is there. Without a screen there is none, and nothing
/// happens.
void setClipboardText(const QString& text);

} // namespace sys
