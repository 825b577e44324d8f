#pragma once

#include "platform/system/Messages.h"

/// Messages as boxes on the screen, over the window that is active: plain text, German buttons, the default
/// button of the flags. Esc and the close box answer a single OK; a question they leave open. Needs a
/// QApplication.
class MessageBoxes final : public sys::Messages {
public:
    sys::Answer show(const QString& text, int flags) override;
};
