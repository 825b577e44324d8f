#pragma once

#include "platform/jet/Database.h"

#include <zablager/DatabaseError.h>

#include <QDate>
#include <QString>

/// Stock of one article at one storage place at the end of a day: the sum of the journal rows of the day's
/// own year up to it, not rounded, in the unit of the bookings.
///
/// Earlier years enter through the opening rows. Without a file for the year a message tells so and the stock
/// is 0. \throws jet::Error InvalidArgument when the day is no date, ExpressionSyntax for a name with an
/// apostrophe, and what Engine::OpenDatabase throws.
double BestandErmitteln(const QString& Artikel, const QString& Lagerort, QDate Stichtag);

/// An error of a statement that sums a column of the journal over many articles; an overflow with the first
/// article and place, in their order, whose numbers are too large for a sum. `eingrenzung` is the statement's
/// WHERE or empty.
jet::Error mitArtikel(const jet::Error& fehler, jet::Database& journal, const QString& spalte,
                      const QString& eingrenzung = {});
