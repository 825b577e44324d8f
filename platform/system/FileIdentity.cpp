#include "platform/system/FileIdentity.h"

#include <QFile>

#include <sys/stat.h>

namespace sys {

namespace {

FileIdentity identityOf(const struct stat& status)
{
    FileIdentity identity;
    identity.device = status.st_dev;
    identity.inode = status.st_ino;
    identity.size = status.st_size;
    identity.changed = std::int64_t{status.st_ctim.tv_sec} * 1'000'000'000 + status.st_ctim.tv_nsec;
    identity.isDirectory = S_ISDIR(status.st_mode);
    identity.isFile = S_ISREG(status.st_mode);
    return identity;
}

} // namespace

std::optional<FileIdentity> identify(const QString& path)
{
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return {};
    return identityOf(status);
}

std::optional<FileIdentity> identify(int descriptor)
{
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return {};
    return identityOf(status);
}

QByteArray readStart(const QString& path, qsizetype count)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.read(count);
}

} // namespace sys
