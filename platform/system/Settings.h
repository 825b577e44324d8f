#pragma once

#include <QString>

namespace sys {

/// The per-user settings of the program family "ZAB - Programme": texts by section and key.
///
/// They lie in one UTF-8 file, `<configuration home>/ZAB - Programme.ini`, as `[Section]` and `Key=value`,
/// the value taken literally to the end of the line, so that a person or another program can write it. Case
/// of sections and keys does not count.

/// The value as it stands in the file at this moment; `preset` when file, section or key is missing. An
/// existing empty value is returned empty. \throws FileError when the file is there and cannot be read, since
/// presets would lead to another farm.
QString GetSetting(const QString& section, const QString& key, const QString& preset = {});

/// Writes one value; what other programs wrote meanwhile stays. A line break in the value becomes a blank.
/// \throws FileError when the file cannot be written; the file then stands as it was.
void SaveSetting(const QString& section, const QString& key, const QString& value);

} // namespace sys
