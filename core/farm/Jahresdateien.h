#pragma once

#include "platform/jet/Database.h"

#include <QString>

#include <vector>

/// Years of which a farm's folder has a journal file "Lager.JJJJ", ascending. Lock files (Lager.ldb) and
/// endings that are not four digits do not count.
///
/// Whatever has the name of a year file counts, be it a directory or a link to nowhere: whoever opens it is
/// told so, while a year passed over would let the year after it go on from the wrong stocks. \throws
/// sys::FileError when the folder is there and cannot be listed.
std::vector<int> jahresdateien(const QString& betriebsordner);

/// Years of which there is a register of plant-protection products, ascending.
std::vector<int> registerjahre(const QString& programmverzeichnis);

/// Whether a year file wants the stocks of the year before; files from before this setting do.
bool uebernimmtVorjahr(jet::Database& journal);
