#include "platform/system/Programs.h"

#include "platform/system/Path.h"

#include <zablager/FileError.h>

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace sys {

using namespace Qt::StringLiterals;

namespace {

bool handOver(const QString& file)
{
#ifdef Q_OS_LINUX
    // The desktops' common door. Qt would take it too, but not on every platform that it shows windows on.
    return QProcess::startDetached(u"xdg-open"_s, {file});
#else
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
#endif
}

} // namespace

void openDocument(const QString& path)
{
    const QString file = localPath(path);
    if (handOver(file)) return;
    throw FileError(FileErrorNumber::FileNotFound,
                    u"Es gibt auf diesem Rechner kein Programm, das die Datei '"_s + file + u"' öffnet."_s);
}

void startProgram(const QString& path, const QString& file)
{
    const QString program = localPath(path);
    if (QProcess::startDetached(program, {file})) return;
    throw FileError(FileErrorNumber::FileNotFound,
                    u"Das Programm '"_s + program + u"' lässt sich nicht starten."_s);
}

} // namespace sys
