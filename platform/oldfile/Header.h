#pragma once

#include <QString>

namespace oldfile {

enum class Format { Jet3, Jet4, Ace };

/// What the first page of a file tells without its reader: which engine wrote it, and what guards it.
struct Header {
    Format format;
    int codePage;     ///< Of its texts where the format has one byte a letter: 1252.
    QString password; ///< Empty: none. It stands in the page; nothing is encrypted with it.
    bool isEncrypted; ///< The newer formats' own encryption: no page can be read.
};

/// \throws jet::Error UnknownFormat when it is no such file, FileNotFound, CannotOpenFile.
Header readHeader(const QString& path);

} // namespace oldfile
