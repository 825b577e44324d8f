#include "platform/system/Path.h"

#include <QDirIterator>
#include <QFileInfo>

namespace sys {

namespace {

/// The entry of `directory` that is called `name` in another case; a null string when there is none.
QString otherSpelling(const QString& directory, const QString& name)
{
    QString found;
    QDirIterator entries(directory, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QString entry = entries.fileName();
        if (name.compare(entry, Qt::CaseInsensitive) != 0) continue;
        if (found.isNull() || entry < found) found = entry;
    }
    return found;
}

QString withFoundComponents(const QString& path)
{
    QString known; // ends with a separator once it is not empty
    qsizetype begin = 0;
    while (begin < path.size()) {
        qsizetype end = path.indexOf(u'/', begin);
        if (end < 0) end = path.size();
        const QString name = path.mid(begin, end - begin);
        if (name.isEmpty() || QFileInfo::exists(known + name)) {
            known += name;
        } else {
            const QString found = otherSpelling(known.isEmpty() ? QStringLiteral(".") : known, name);
            if (found.isNull()) return known + path.mid(begin);
            known += found;
        }
        if (end < path.size()) known += u'/';
        begin = end + 1;
    }
    return known;
}

} // namespace

QString localPath(const QString& path)
{
    QString local = withLocalSeparators(path);
    if (QFileInfo::exists(local))
        return local; // the common case, asked thousands of times a second: one system call
    return withFoundComponents(local);
}

QString withLocalSeparators(const QString& path)
{
    QString local = path;
    local.replace(u'\\', u'/');
    if (path.startsWith(u"x\\")) local[1] = u'\\';
    return local;
}

} // namespace sys
