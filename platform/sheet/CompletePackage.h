#pragma once

#include <QString>

/// Whether each part of a spreadsheet file, which is a zip archive of XML texts, ends with the end tag of its
/// root.
///
/// The library that writes these files builds each part in a temporary file and does not notice when the disk
/// has no room for its end; what is left of the part is then packed as if it were all.
bool isCompletePackage(const QString& file);
