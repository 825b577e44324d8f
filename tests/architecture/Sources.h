#pragma once

#include <QDir>
#include <QStringList>

/// What in the C++ sources below `tree` breaks the rules of the rooms: an include against the arrows, SQLite outside its
/// folder, a file that is too long. One text "folder/File.cpp:12: what" each, in the order of the files.
QStringList brokenRules(const QDir& tree);
