#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

namespace sys {

/// One settings file: `[Section]` and `Key=value`, UTF-8 with or without a byte order mark, lines ending in
/// LF or CRLF; blank lines and lines that begin with ';' or '#' say nothing. Of a key that stands twice the
/// first one counts.
///
/// Not QSettings with a format of our own: that notices another program's change only by time and size of the
/// file, drops comments when it writes, and splits keys at '/'.
class SettingsFile {
public:
    /// The value in these bytes of the file. They are parsed only when they differ from those of the call
    /// before.
    std::optional<QString> value(const QByteArray& bytes, const QString& section, const QString& key);

    /// The bytes with one value set, every other line kept to the byte. `value` holds no line break.
    static QByteArray withValue(const QByteArray& bytes, const QString& section, const QString& key,
                                const QString& value);

private:
    QByteArray m_parsed;
    QHash<QString, QString> m_values; // by entryName
};

} // namespace sys
