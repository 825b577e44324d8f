#pragma once

#include "core/farm/pruefung/Befund.h"

#include <QStringList>

/// Where the files are that are checked.
struct Pruefziel {
    QString daten, programm, anlagen;
    QStringList Betriebe; ///< The numbers of the farms.
};

/// Checks the files of farms: whether they are whole, and whether what stands in them fits together. No
/// byte of them changes. \returns what was found, the worst first, and by farm, year and booking. \throws
/// jet::Error DiskFull when there is no room for the copies that are looked at.
std::vector<Befund> pruefe(const Pruefziel& ziel);
