#pragma once

#include <zablager/FileError.h>

#include <QString>

namespace sys {

/// The refusal of that number for a file: "Datei nicht gefunden: <path>".
FileError fileFault(FileErrorNumber number, const QString& path);

/// The refusal that belongs to a system call's `errno`.
FileError fileFault(int systemError, const QString& path);

} // namespace sys
