#pragma once

#include "platform/jet/Database.h"

#include <QString>

class ComboBox;

/// The lists of the filters, each beginning with the row that means no restriction.
struct Filterlisten {
    ComboBox &drpLagerOrte, &drpArtikelGruppe, &drpArtikel;
};

/// Fills them from a journal; articles are those of the chosen kind. The chosen texts stay as they are.
/// \throws jet::Error.
void fuelle(const Filterlisten& listen, jet::Database& journal);
/// The same, but what the journal does not know is no restriction there, be it the place that a host asked
/// for.
void fuelleFuerAnderesJahr(const Filterlisten& listen, jet::Database& journal);
