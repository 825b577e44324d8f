#include "platform/system/Status.h"

#include "platform/system/Surroundings.h"

#include <utility>

namespace sys {

void showStatus(const QString& text)
{
    if (surroundings().status) surroundings().status(text);
}

void warn(const QString& text)
{
    ConsoleMessages().show(text, Exclamation | OKOnly);
    showStatus(text);
}

StatusScope::StatusScope(std::function<void(const QString&)> line)
    : m_before(std::exchange(surroundings().status, std::move(line)))
{}

StatusScope::~StatusScope()
{
    surroundings().status = std::move(m_before);
}

} // namespace sys
