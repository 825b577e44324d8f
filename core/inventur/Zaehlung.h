#pragma once

#include "core/inventur/Zaehldatei.h"

/// What became of the counts of a day.
struct Zaehlergebnis {
    int gebucht = 0;
    /// Pairs whose stock has changed since it was shown, as it is now. They are not booked.
    std::vector<Zaehlzeile> geaendert;
};

/// Books what was counted as rows "Korrektur" of the day, the journal of the open year then says what lies
/// there on its evening. All of it in one commit, and taken back in one step. Lines in two units are left
/// out. \throws jet::Error, sys::FileError; nothing is booked then.
Zaehlergebnis bucheZaehlung(const std::vector<Zaehlzeile>& zeilen, Zaehldatei& datei);
