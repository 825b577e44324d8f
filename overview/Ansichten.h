#pragma once

#include "masks/Maskenfelder.h"
#include "overview/Filter.h"

#include <optional>
#include <vector>

/// The two views of a year, each a data control and its grid: the movement journal and the stock list.
///
/// Filters and sorting are texts in the data control's record source: filtering keeps what begins with ORDER
/// BY, sorting what stands before it. Where the database refuses such a text, since a name in it has an
/// apostrophe or the letters "order", the error goes to the caller; the view is closed with its first record
/// source, unsorted, and the other one, whose text holds the same name, loses its filter but keeps its order:
/// see brauchtFilter().

/// Gives the view its columns and its first record source, sorted by the first column: the journal by
/// "Datum", the stock list by "Artikel".
void richteJournalEin(DataControl& daten, DataGrid& liste);
void richteBestandslisteEin(DataControl& daten, DataGrid& liste);

/// Whether the view has no filter, not yet or by such an error: filter it before its rows are shown again.
bool brauchtFilter(const DataControl& daten);

/// What is to be current when the journal has been read anew: the first of these bookings that is on view,
/// else what stands at the place.
struct Wiederfinden {
    std::vector<std::vector<qint64>> neue = {}; ///< The rows of each new booking, the newest booking first.
    std::optional<qint64> vorher = {};          ///< What was current before.
    qsizetype platz = 0;
};
/// \returns whether the filter hides a new booking with all its rows.
bool sucheEine(DataControl& daten, const Wiederfinden& gesucht);

/// Shows the rows of a restriction (see eingrenzung()) in their present order. The journal keeps its current
/// booking where it is still in view. \throws jet::Error.
void filtereJournal(const Hauptansicht& haupt, const QString& eingrenzung);
void filtereBestandsliste(const Hauptansicht& haupt, const QString& eingrenzung,
                          const Bestandsansicht& ansicht);

/// Sorts by a column, at a second call in the other direction. \throws jet::Error.
void sortiereJournal(const Hauptansicht& haupt, int spalte);
void sortiereBestandsliste(const Hauptansicht& haupt, int spalte);

/// Tells above a list how many rows it has ("1 Bewegung", "2 Bewegungen"), or that they could not be read.
void zeigeZeilenzahl(const DataControl& daten, DataGrid& liste, const QString& eine, const QString& mehrere);
