#pragma once

#include "core/farm/Dateien.h"
#include "platform/oldfile/File.h"

#include <optional>

// Which files of an old farm there are, and what each of them is.

/// Where to look. `alt` is the old data directory, or one file.
struct Suche {
    QString alt;
    QString betrieb;  ///< Whose folder "B<number>" counts.
    QString anlagen;  ///< Of the objects; empty: beside the data directory.
    QString programm; ///< Of the registers; the same.
};

/// The files by their names, master data first and years ascending. Names are found whatever their case.
/// \throws sys::FileError when there is no such file or directory, or no folder of the farm in it.
QStringList altdateien(const Suche& suche);

/// What a file is by its tables; no value: no file of a farm.
std::optional<Dateiart> dateiart(const oldfile::File::Contents& inhalt);

/// The year in a file's name, "Lager.2024" or "ZABStammdaten_2024.mdb"; no value: there is none.
std::optional<int> jahrImNamen(const QString& pfad);
