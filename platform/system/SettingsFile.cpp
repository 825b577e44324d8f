#include "platform/system/SettingsFile.h"

#include <QStringView>

namespace sys {

using namespace Qt::StringLiterals;

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

/// What a line says. A line that says nothing has neither section nor key.
struct Line {
    std::optional<QString> section;
    std::optional<QString> key;
    QString value;
};

Line readLine(QByteArray bytes)
{
    if (bytes.startsWith(ByteOrderMark)) bytes.remove(0, 3);
    if (bytes.endsWith('\n')) bytes.chop(1);
    if (bytes.endsWith('\r')) bytes.chop(1);
    const QString text = QString::fromUtf8(bytes);
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith(u';') || trimmed.startsWith(u'#')) return {};
    if (trimmed.startsWith(u'[') && trimmed.endsWith(u']'))
        return {trimmed.mid(1, trimmed.size() - 2).trimmed(), {}, {}};
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 0) return {};
    return {{}, text.left(equals).trimmed(), text.mid(equals + 1)};
}

/// The lines with their ends.
QList<QByteArray> linesOf(const QByteArray& bytes)
{
    QList<QByteArray> lines;
    qsizetype begin = 0;
    while (begin < bytes.size()) {
        const qsizetype found = bytes.indexOf('\n', begin);
        const qsizetype end = found < 0 ? bytes.size() : found + 1;
        lines.append(bytes.mid(begin, end - begin));
        begin = end;
    }
    return lines;
}

QString entryName(const QString& section, const QString& key)
{
    return section.toCaseFolded() + u'\n' + key.toCaseFolded();
}

/// Where a value stands, or where its line and perhaps its section are to be put.
struct Place {
    qsizetype line = -1;
    qsizetype endOfSection = -1; ///< The line after the last one that says something in the section.
};

Place placeOf(const QList<QByteArray>& lines, const QString& section, const QString& key)
{
    const QString wantedSection = entryName(section, {});
    const QString wanted = entryName(section, key);
    QString current;
    Place place;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const Line line = readLine(lines[i]);
        if (line.section) current = *line.section;
        if (!line.section && !line.key) continue;
        if (line.key && entryName(current, *line.key) == wanted) return {i, i + 1};
        if (entryName(current, {}) == wantedSection) place.endOfSection = i + 1;
    }
    return place;
}

} // namespace

std::optional<QString> SettingsFile::value(const QByteArray& bytes, const QString& section,
                                           const QString& key)
{
    if (bytes != m_parsed) {
        m_values.clear();
        QString current;
        for (const QByteArray& bytesOfLine : linesOf(bytes)) {
            const Line line = readLine(bytesOfLine);
            if (line.section) current = *line.section;
            if (!line.key) continue;
            const QString name = entryName(current, *line.key);
            if (!m_values.contains(name)) m_values.insert(name, line.value);
        }
        m_parsed = bytes;
    }
    const auto found = m_values.constFind(entryName(section, key));
    if (found == m_values.constEnd()) return {};
    return *found;
}

QByteArray SettingsFile::withValue(const QByteArray& bytes, const QString& section, const QString& key,
                                   const QString& value)
{
    QList<QByteArray> lines = linesOf(bytes);
    const QByteArray lineEnd = bytes.contains("\r\n") ? "\r\n" : "\n";
    const QByteArray entry = (key + u'=' + value).toUtf8() + lineEnd;
    const Place place = placeOf(lines, section, key);
    if (place.line >= 0) {
        lines[place.line] = entry;
        return lines.join();
    }
    if (!lines.isEmpty() && !lines.last().endsWith('\n')) lines.last() += lineEnd;
    if (place.endOfSection >= 0) {
        lines.insert(place.endOfSection, entry);
        return lines.join();
    }
    if (!lines.isEmpty()) lines.append(lineEnd);
    lines.append(('[' + section.toUtf8() + ']') + lineEnd);
    lines.append(entry);
    return lines.join();
}

} // namespace sys
