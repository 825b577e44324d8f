#include "platform/system/KeptFile.h"

#include "platform/system/FileFault.h"

#include <QDateTime>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace sys {

namespace {

/// Whether whoever changes the file from now on gives it another time: times of files go in steps of some
/// milliseconds.
bool isSettled(const FileIdentity& file)
{
    constexpr qint64 Long = 2'000; // ms; the coarsest times that file systems keep
    return QDateTime::currentMSecsSinceEpoch() - file.changed / 1'000'000 > Long;
}

} // namespace

KeptFile::~KeptFile()
{
    close();
}

std::optional<QByteArray> KeptFile::bytes(const QString& path)
{
    const auto named = identify(path);
    if (named && !named->isFile) throw fileFault(FileErrorNumber::PathAccess, path);
    if (named && m_file >= 0 && m_isSettled && *named == m_identity) return m_bytes;
    if (named && m_file >= 0 && named->sameFile(m_identity)) return read(path, *named);
    close();
    if (!open(path)) return {};
    return read(path, m_identity);
}

QByteArray KeptFile::read(const QString& path, const FileIdentity& now)
{
    m_isSettled = false;
    QByteArray bytes(static_cast<qsizetype>(now.size), Qt::Uninitialized);
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
    m_identity = now;
    m_bytes = bytes;
    m_isSettled = isSettled(now);
    return bytes;
}

bool KeptFile::open(const QString& path)
{
    m_file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (m_file < 0 && errno == ENOENT) return false;
    if (m_file < 0) throw fileFault(errno, path);
    const auto opened = identify(m_file);
    if (!opened) {
        close();
        throw fileFault(FileErrorNumber::PathAccess, path);
    }
    m_identity = *opened;
    return true;
}

void KeptFile::close()
{
    if (m_file >= 0) ::close(m_file);
    m_file = -1;
}

} // namespace sys
