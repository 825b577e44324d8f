#include "platform/system/KeptFile.h"

#include "platform/system/FileFault.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace sys {

KeptFile::~KeptFile()
{
    close();
}

std::optional<QByteArray> KeptFile::bytes(const QString& path)
{
    const auto named = identify(path);
    if (named && !named->isFile) throw fileFault(FileErrorNumber::PathAccess, path);
    if (named && m_file >= 0 && named->sameFile(m_identity)) return read(path, named->size);
    close();
    if (!open(path)) return {};
    return read(path, m_identity.size);
}

QByteArray KeptFile::read(const QString& path, std::int64_t size) const
{
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const auto rest = static_cast<std::size_t>(bytes.size() - filled);
        const ssize_t count = ::pread(m_file, bytes.data() + filled, rest, filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw fileFault(errno, path);
        if (count == 0) break; // it has become shorter
        filled += count;
    }
    bytes.truncate(filled);
    return bytes;
}

bool KeptFile::open(const QString& path)
{
    m_file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (m_file < 0 && errno == ENOENT) return false;
    if (m_file < 0) throw fileFault(errno, path);
    struct stat status {};
    if (::fstat(m_file, &status) != 0) {
        close();
        throw fileFault(FileErrorNumber::PathAccess, path);
    }
    m_identity.device = status.st_dev;
    m_identity.inode = status.st_ino;
    m_identity.size = status.st_size;
    return true;
}

void KeptFile::close()
{
    if (m_file >= 0) ::close(m_file);
    m_file = -1;
}

} // namespace sys
