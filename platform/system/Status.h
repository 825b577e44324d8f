#pragma once

#include <QString>

#include <functional>

// What goes on or has failed where nobody need answer.

namespace sys {

/// A line for the status line of the screen that is open, until the next one; empty: there is nothing to
/// tell any more.
void showStatus(const QString& text);
/// The same, and a line on standard error: something failed that stops nobody.
void warn(const QString& text);

/// Lets such lines go to a screen while it lives, then again to where they went before.
class StatusScope {
public:
    explicit StatusScope(std::function<void(const QString& text)> line);
    ~StatusScope();
    Q_DISABLE_COPY_MOVE(StatusScope)

private:
    std::function<void(const QString& text)> m_before;
};

} // namespace sys
