#pragma once

#include <zablager/Messages.h>

#include <QString>

#include <vector>

namespace sys {

/// The buttons of a message in their order, from its flags.
std::vector<Answer> buttons(int flags);
/// The answer that the default button gives.
Answer defaultAnswer(int flags);

/// The text of a message with every line break, CR or CRLF as well, as a line feed.
QString withLineFeeds(QString text);

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
