#include "platform/system/WindowsDirectory.h"

namespace sys {

namespace {

constexpr qsizetype Buffer = 145; // with the NUL at its end; a longer name is not handed out at all

} // namespace

QString WindowsVerzeichnis()
{
    // Windows keeps its directory in every process's environment too; elsewhere a compatibility layer may set
    // it.
    const QString directory = qEnvironmentVariable("windir");
    return directory.size() < Buffer ? directory : QString();
}

} // namespace sys
