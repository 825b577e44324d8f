#pragma once

#include "platform/jet/Database.h"

#include <QString>

#include <memory>
#include <vector>

/// The journal file of a year of the farm: data directory + "\B" + farm number + "\Lager." + year. The year
/// is the ending; there is no other one.
QString Journaldatei(int jahr);

/// Years of which the farm has a journal file, ascending: those of jahresdateien() in its folder.
std::vector<int> journaljahre();

/// Opens the journal file of a year with the component's own connect text. \throws jet::Error as
/// Engine::OpenDatabase.
std::unique_ptr<jet::Database> oeffneJournal(int jahr);

/// Opens the file that the screen is bound to, with the connect text that the host has given.
std::unique_ptr<jet::Database> oeffneJournaldatei();

/// Makes a journal file that does not exist yet as a copy of the template; an existing one is left alone.
/// \throws sys::FileError when no file is named, the template is missing or the file cannot be written;
/// jet::Error when the template is no whole database, since its copy would be a broken year that nothing
/// replaces.
void stelleJournalBereit(const QString& datei);
