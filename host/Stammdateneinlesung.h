#pragma once

#include "host/Stammdatenausgabe.h"

/// Reads the .csv files of a folder, or one file, into the master data: a database as a whole or, where a
/// line is refused, not at all. Tells of each file how it was read and what became of its lines, and each
/// line that is refused. \param probe tells the same and writes nothing. \throws Teilerfolg when something
/// was refused; Aufruffehler for a register of no year; sys::FileError, jet::Error.
void liesStammdatenEin(const Stammdatenauftrag& auftrag, bool probe);
