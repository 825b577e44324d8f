#pragma once

#include "platform/jet/Database.h"

#include <QString>

class ComboBox;

/// The lists of the filters, each beginning with the row that means no restriction; the chosen texts stay as they are.
/// \throws jet::Error.

void fuelleLagerorte(ComboBox& liste, jet::Database& journal);
void fuelleArtikelgruppen(ComboBox& liste, jet::Database& journal);
/// Articles of one kind, or of all when the filter does not name one.
void fuelleArtikel(ComboBox& liste, jet::Database& journal, const QString& Artikelgruppe);
