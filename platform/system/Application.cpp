#include "platform/system/Application.h"

#include "platform/system/Surroundings.h"

namespace sys {

QString applicationVersion()
{
    return QStringLiteral(ZABLAGER_VERSION); // the build's
}

QString applicationTitle()
{
    const QString& title = surroundings().title;
    return title.isEmpty() ? ApplicationName.toString() : title;
}

void setApplicationTitle(const QString& title)
{
    surroundings().title = title;
}

} // namespace sys
