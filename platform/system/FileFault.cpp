#include "platform/system/FileFault.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace sys {

using namespace Qt::StringLiterals;

namespace {

QString textOf(FileErrorNumber number)
{
    switch (number) {
    case FileErrorNumber::FileNotFound: return u"Datei nicht gefunden"_s;
    case FileErrorNumber::DiskFull: return u"Datenträger voll"_s;
    case FileErrorNumber::AccessDenied: return u"Zugriff verweigert"_s;
    case FileErrorNumber::PathAccess: return u"Fehler beim Zugriff auf Pfad/Datei"_s;
    case FileErrorNumber::PathNotFound: return u"Pfad nicht gefunden"_s;
    }
    Q_UNREACHABLE();
}

FileErrorNumber numberOf(int systemError, const QString& path)
{
    switch (systemError) {
    case ENOENT: // of the file that is to be written, too
        return QFileInfo(path).dir().exists() ? FileErrorNumber::FileNotFound : FileErrorNumber::PathNotFound;
    case ENOTDIR: return FileErrorNumber::PathNotFound;
    case ENOSPC:
    case EDQUOT: // the user's share of the disk
    case EFBIG:  // the size limit of the process
        return FileErrorNumber::DiskFull;
    case EACCES:
    case EPERM:
    case EBUSY: return FileErrorNumber::AccessDenied;
    default: return FileErrorNumber::PathAccess;
    }
}

} // namespace

FileError fileFault(FileErrorNumber number, const QString& path)
{
    return FileError(number, textOf(number) + u": "_s + path);
}

FileError fileFault(int systemError, const QString& path)
{
    return fileFault(numberOf(systemError, path), path);
}

} // namespace sys
