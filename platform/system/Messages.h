#pragma once

#include <QString>

#include <memory>

namespace sys {

/// Buttons, icon and default button of a message, joined with |. The values are the classic ones.
enum MessageFlags : int {
    OKOnly = 0,
    AbortRetryIgnore = 2,
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

/// Messages on a terminal: the text to standard error; nobody is asked, the default button is the answer.
class ConsoleMessages : public Messages {
public:
    Answer show(const QString& text, int flags) override;
};

/// The place messages go to now: at start a ConsoleMessages.
Messages& messages();

/// Lets messages go to `target` while it lives, then again to where they went before.
class MessageScope {
public:
    explicit MessageScope(Messages& target);
    ~MessageScope();
    Q_DISABLE_COPY_MOVE(MessageScope)

private:
    Messages* m_before;
};

/// A message with the critical icon and one button.
void critical(const QString& text);

} // namespace sys
