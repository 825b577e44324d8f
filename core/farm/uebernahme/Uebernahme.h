#pragma once

#include "core/farm/uebernahme/Quellen.h"

#include <functional>

/// Where the files of the farm go: directories of an installation that are there.
struct Uebernahmeziel {
    QString daten, betriebsordner, anlagen, programm;
};

struct Uebernahmeauftrag {
    Suche suche;
    Uebernahmeziel ziel;
    QString kennwort;      ///< One more than the family's own; may be empty.
    bool verluste = false; ///< Files with values that do not come along are taken all the same.
    bool probe = false;    ///< Says what it would do.
    /// Asks for the password of a file; an empty answer: there is none. May be null.
    std::function<QString(const QString& datei)> frageKennwort;
    std::function<void(const QString&)> sage;  ///< What is done, a line each.
    std::function<void(const QString&)> klage; ///< What is not.
};

/// Takes an old farm over: each file comes as a whole or not at all, one that is there already stays as it
/// is, and what was written is compared with the old file before it gets its name. \returns whether all
/// came. \throws sys::FileError when there is nothing to take.
bool uebernimm(const Uebernahmeauftrag& auftrag);
