#pragma once

#include <QString>

namespace sys {

/// Opens a file with the program that the user's desktop has for its kind. Nobody waits for that program, and
/// what it makes of the file is between it and the user. \throws FileError FileNotFound when the desktop has
/// no means to open files.
void openDocument(const QString& path);

/// Starts a program on a file, for which nobody waits. \throws FileError FileNotFound when it cannot be
/// started.
void startProgram(const QString& path, const QString& file);

} // namespace sys
