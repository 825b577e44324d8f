#include "platform/system/OwnFile.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace sys {

namespace {

// its address tells our file from the host's; a function's might be the host's of the same name
const char Here = 0;

} // namespace

QString ownFile()
{
    Dl_info found{};
    if (::dladdr(&Here, &found) == 0) return {}; // cannot be: an address of our own lies in a loaded file
    const QString name = QFile::decodeName(found.dli_fname);
    // A program that was found by the search path has no directory in its name.
    if (!name.contains(u'/')) return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    return QFileInfo(name).absoluteFilePath();
}

} // namespace sys
