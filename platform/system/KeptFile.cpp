#include "platform/system/KeptFile.h"

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
    if (named && m_file >= 0 && named->sameFile(m_identity)) return read(named->size);
    close();
    if (named) open(path);
    return m_file < 0 ? std::nullopt : read(m_identity.size);
}

std::optional<QByteArray> KeptFile::read(std::int64_t size) const
{
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < bytes.size()) {
        const auto rest = static_cast<std::size_t>(bytes.size() - filled);
        const ssize_t count = ::pread(m_file, bytes.data() + filled, rest, filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return {};
        if (count == 0) break; // it has become shorter
        filled += count;
    }
    bytes.truncate(filled);
    return bytes;
}

void KeptFile::open(const QString& path)
{
    m_file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (m_file < 0 || ::fstat(m_file, &status) != 0) return close();
    m_identity.device = status.st_dev;
    m_identity.inode = status.st_ino;
    m_identity.size = status.st_size;
}

void KeptFile::close()
{
    if (m_file >= 0) ::close(m_file);
    m_file = -1;
}

} // namespace sys
