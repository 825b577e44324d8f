#pragma once

#include <QString>

namespace sys {

/// Buttons, icon and default button of a message, joined with |. The values are the classic ones.
enum MessageFlags : int {
    OKOnly = 0,
    OKCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
    DefaultButton2 = 256,
    DefaultButton3 = 512,
};

/// What the user answered; the values are the classic ones.
enum class Answer : int { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// Where messages to the user go. The text is plain; a lone CR (13) and CRLF are line breaks.
class Messages {
public:
    virtual ~Messages() = default;
    /// Shows a message and waits for the answer. `flags` are MessageFlags joined with |.
    virtual Answer show(const QString& text, int flags) = 0;
};

} // namespace sys
