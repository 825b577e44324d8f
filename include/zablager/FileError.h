#pragma once

#include <QString>

#include <stdexcept>

namespace sys {

/// Why the file system refused. The values are the numbers that handbooks and support know.
enum class FileErrorNumber : int {
    FileNotFound = 53,
    DiskFull = 61,
    AccessDenied = 70,
    PathAccess = 75, ///< The target is read-only or a directory.
    PathNotFound = 76,
};

/// A refusal of the file system. The text is German, names the file and is shown to the user as it stands.
class FileError : public std::runtime_error {
public:
    FileError(FileErrorNumber number, const QString& text)
        : std::runtime_error(text.toStdString()), m_number(number), m_text(text)
    {}

    FileErrorNumber number() const noexcept { return m_number; }
    const QString& text() const noexcept { return m_text; } ///< what() holds the same in UTF-8.

private:
    FileErrorNumber m_number;
    QString m_text;
};

} // namespace sys
