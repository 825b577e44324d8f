#pragma once

#include <QString>

namespace jet {

/// Makes a database file that does not exist yet as a copy of another one; an existing file is left alone.
///
/// The template is opened first, with `connect`: the copy of a damaged one would stand in the place of a good
/// file for ever. \throws sys::FileError when the template is missing or the copy cannot be made; what
/// Engine::OpenDatabase throws.
void copyWhereMissing(const QString& templateFile, const QString& connect, const QString& target);

} // namespace jet
