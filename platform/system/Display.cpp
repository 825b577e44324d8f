#include "platform/system/Display.h"

#include <QtGlobal>

namespace sys {

bool hasDisplay()
{
#ifdef Q_OS_LINUX
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

} // namespace sys
