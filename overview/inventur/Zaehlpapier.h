#pragma once

#include "core/inventur/Zaehlliste.h"
#include "overview/Listenpapier.h"

/// "Zählliste drucken": the lines with an empty field for each, through a form that a farm can change.
/// \param mitBestand whoever counts sees what should lie there.
Listenpapier::Auftrag zaehlpapier(const std::vector<Zaehlzeile>& zeilen, QDate tag, bool mitBestand);
