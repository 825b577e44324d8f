#pragma once

#include "platform/jet/Database.h"

/// The year file's setting "Bestände des Vorjahres nicht berücksichtigen". A file without its row gets one;
/// an older file without its column counts as false.
bool ohneVorjahr(jet::Database& journal);

/// \throws jet::Error NoSuchField for an older file.
void setzeOhneVorjahr(jet::Database& journal, bool wert);
