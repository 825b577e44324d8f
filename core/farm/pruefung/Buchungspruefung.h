#pragma once

#include "core/farm/pruefung/Befund.h"
#include "core/farm/pruefung/Journalzeilen.h"

/// Looks at the bookings of a year: their days, the rows of transfers, the numbers of delivery notes.
void pruefeBuchungen(const Journalzeilen& journal, int jahr, Befunde& befunde);

/// Whether a new booking gets a number that no row has and no transfer names as its other row: it would be
/// taken for that, and be deleted with it. \param kopie a copy, in which a row is booked to see its
/// number.
void pruefeZaehler(const Journalzeilen& journal, jet::Database& kopie, Befunde& befunde);
