#pragma once

#include <QString>

/// The data directory of the settings as they stand at this moment; "x" when the setting is missing.
QString datenverzeichnis();

/// The common program directory of the settings, or the data directory where that one does not exist: base of
/// the template, the help file and the report forms.
QString ProgrammVerzeichnis();
