#pragma once

#include "platform/jet/Database.h"

#include <QString>

/// Whether a table of the file has a column of that name, both in any case; false also when the table is
/// missing.
bool FeldVorhanden(const jet::Database& datenbank, const QString& tabelle, const QString& spalte);
