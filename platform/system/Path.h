#pragma once

#include <QString>

namespace sys {

/// The local form of a path that domain code joined with backslashes ("D:\Daten" + "\B4711" + "\Lager.2024").
///
/// Backslashes become the local separator, and each component is found whatever its case: "Lager.Vorlage"
/// finds "Lager.vorlage". A component that does not exist stays as it is written, and so does everything
/// after it. An exact spelling wins over another one; among several other spellings the first in alphabetical
/// order counts.
///
/// What is joined to "x", the mark of a missing setting, keeps that backslash and so is found nowhere: a
/// folder "x" in the working directory is somebody else's.
QString localPath(const QString& path);

/// Backslashes become the local separator, but the one behind "x"; nothing is looked up.
QString withLocalSeparators(const QString& path);

} // namespace sys
