#include "platform/system/Files.h"

#include "platform/system/FileFault.h"
#include "platform/system/Path.h"
#include "platform/system/Surroundings.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QScopeGuard>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <dirent.h>
#include <unistd.h>

namespace sys {

namespace {

bool isWildcard(QChar c)
{
    return c == u'*' || c == u'?';
}

/// Whether a name fits a pattern; both are taken character by character, the pattern's first one decides.
bool fits(QStringView pattern, QStringView name)
{
    if (pattern.isEmpty()) return name.isEmpty();
    const QStringView rest = pattern.mid(1);
    if (pattern[0] == u'*') return fits(rest, name) || (!name.isEmpty() && fits(pattern, name.mid(1)));
    const bool atEnd = name.isEmpty();
    if (pattern[0] == u'?') return fits(rest, atEnd || name[0] == u'.' ? name : name.mid(1));
    // the dot before wildcards may be missing with all that follows: "*.*" is every name, "Lager.????" also
    // "Lager"
    if (atEnd) return pattern[0] == u'.' && !rest.isEmpty() && isWildcard(rest[0]) && fits(rest, name);
    return pattern[0].toCaseFolded() == name[0].toCaseFolded() && fits(rest, name.mid(1));
}

/// "lager.2023" stands before "Lager.2024": years are carried forward in this order.
bool before(const QString& a, const QString& b)
{
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

void letGoOf(const QString& path)
{
    for (const auto& letGo : surroundings().letGo)
        letGo(path);
}

/// `name` is the one that the user knows the target by.
void copyBytes(QFile& from, QFileDevice& to, const QString& name)
{
    constexpr qint64 BlockSize = 1 << 20;
    for (;;) {
        const QByteArray block = from.read(BlockSize);
        if (from.error() != QFile::NoError) throw fileFault(errno, from.fileName());
        if (block.isEmpty()) return;
        // Qt leaves errno as the failed system call set it; its own codes do not know quotas and size limits
        if (to.write(block) != block.size()) throw fileFault(errno, name);
    }
}

void refuseSource(const QFileInfo& source)
{
    if (!QFileInfo::exists(source.path())) throw fileFault(FileErrorNumber::PathNotFound, source.filePath());
    if (!source.exists()) throw fileFault(FileErrorNumber::FileNotFound, source.filePath());
    if (!source.isFile()) throw fileFault(FileErrorNumber::PathAccess, source.filePath());
}

void refuseTarget(const QFileInfo& target)
{
    if (!QFileInfo(target.path()).isDir()) throw fileFault(FileErrorNumber::PathNotFound, target.filePath());
    if (!target.exists()) return;
    if (!target.isFile() || !target.isWritable())
        throw fileFault(FileErrorNumber::PathAccess, target.filePath());
}

/// Gives a file its name unless another file has it. \returns 0, or why it did not get it.
int takeName(const QString& draft, const QString& name)
{
    const QByteArray from = QFile::encodeName(draft);
    const QByteArray to = QFile::encodeName(name);
    if (::link(from.constData(), to.constData()) == 0) return 0;
    const bool cannotLink = errno == EPERM || errno == EOPNOTSUPP || errno == EMLINK; // as on memory sticks
    if (cannotLink && !QFile::exists(name) && ::rename(from.constData(), to.constData()) == 0) return 0;
    return errno == EEXIST ? 0 : errno;
}

QStringList namesThatFit(const QString& pattern, QDir::Filters filter)
{
    const QString local = withLocalSeparators(pattern);
    const qsizetype nameBegin = local.lastIndexOf(u'/') + 1;
    const QString directory = nameBegin == 0 ? QStringLiteral(".") : localPath(local.left(nameBegin));
    const QStringView wanted = QStringView(local).mid(nameBegin);

    QStringList names = QDir(directory).entryList(filter, QDir::Unsorted);
    names.removeIf([wanted](const QString& name) { return !fits(wanted, name); });
    std::sort(names.begin(), names.end(), before);
    return names;
}

} // namespace

std::int16_t Exist(const QString& path)
{
    if (QFileInfo::exists(withLocalSeparators(path))) return -1; // one system call for the usual answer
    return QFileInfo::exists(localPath(path)) ? -1 : 0;
}

QStringList Dir(const QString& pattern)
{
    return namesThatFit(pattern, QDir::Files);
}

QStringList DirEntries(const QString& pattern)
{
    const QString directory = localPath(withLocalSeparators(pattern).section(u'/', 0, -2));
    DIR* const opened = ::opendir(QFile::encodeName(directory).constData());
    if (!opened && errno != ENOENT && errno != ENOTDIR) throw fileFault(errno, directory);
    if (opened) ::closedir(opened);
    return namesThatFit(pattern, QDir::AllEntries | QDir::System |
                                     QDir::NoDotAndDotDot); // dangling links are "system"
}

void FileCopy(const QString& source, const QString& target)
{
    QFile from(localPath(source));
    QSaveFile to(localPath(target));
    refuseSource(QFileInfo(from.fileName()));
    refuseTarget(QFileInfo(to.fileName()));
    letGoOf(from.fileName());
    letGoOf(to.fileName());

    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) throw fileFault(errno, from.fileName());
    if (!to.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) throw fileFault(errno, to.fileName());
    copyBytes(from, to, to.fileName());
    if (!to.commit()) throw fileFault(errno, to.fileName());
}

void writeWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw fileFault(FileErrorNumber::PathAccess, path);
    if (file.write(bytes) != bytes.size() || !file.commit()) throw fileFault(errno, path);
}

void CopyWhereMissing(const QString& source, const QString& target)
{
    if (Exist(target)) return;
    QFile from(localPath(source));
    const QString name = localPath(target);
    refuseSource(QFileInfo(from.fileName()));
    refuseTarget(QFileInfo(name));
    letGoOf(from.fileName());
    letGoOf(name);
    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) throw fileFault(errno, from.fileName());

    QFile draft(draftName(name));
    if (!draft.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw fileFault(errno, name);
    const auto removeDraft = qScopeGuard([&draft] { draft.remove(); });
    copyBytes(from, draft, name);
    if (::fsync(draft.handle()) != 0) throw fileFault(errno, name);
    if (const int failure = takeName(draft.fileName(), name)) throw fileFault(failure, name);
}

QString draftName(const QString& path)
{
    return path + u'.' + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

void Kill(const QString& path)
{
    QFile file(localPath(path));
    const QFileInfo info(file.fileName());
    if (!info.exists()) throw fileFault(FileErrorNumber::FileNotFound, file.fileName());
    if (info.isDir()) throw fileFault(FileErrorNumber::PathAccess, file.fileName());
    letGoOf(file.fileName());
    if (!file.remove()) throw fileFault(errno, file.fileName());
}

void beforeFileChange(std::function<void(const QString& path)> letGo)
{
    surroundings().letGo.push_back(std::move(letGo));
}

} // namespace sys
