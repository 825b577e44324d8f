#include "platform/system/Display.h"

#include <QGuiApplication>

#ifdef Q_OS_LINUX
#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace sys {

#ifdef Q_OS_LINUX

namespace {

bool isNamed()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// Ends with 0 where Qt finds its display, and is aborted by Qt where not: in silence, and without a picture
/// of its memory.
[[noreturn]] void tryDisplay(int argc, char** argv)
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    if (!std::freopen("/dev/null", "w", stderr)) _exit(1);
    const QGuiApplication application(argc, argv);
    _exit(0);
}

} // namespace

bool hasDisplay(int argc, char** argv)
{
    if (!isNamed()) return false;
    const pid_t child = fork();
    if (child == 0) tryDisplay(argc, argv);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool hasTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

#else

bool hasDisplay(int, char**)
{
    return true;
}

bool hasTerminal()
{
    return false;
}

#endif

} // namespace sys
