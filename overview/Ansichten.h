#pragma once

#include "overview/Filter.h"

#include <vector>

class DataControl;
class DataGrid;

/// The two views of a year, each a data control and its grid: the movement journal and the stock list.
///
/// Filters and sorting are texts in the data control's record source: filtering keeps what begins with ORDER BY, sorting
/// what stands before it. Where the database refuses such a text, since a name in it has an apostrophe or the letters
/// "order", the error goes to the caller, and the view is closed with its first record source: see brauchtFilter().

/// Gives the view its columns and its first record source, sorted by the first column: the journal by "Datum", the stock
/// list by "Artikel".
void richteJournalEin(DataControl& daten, DataGrid& liste);
void richteBestandslisteEin(DataControl& daten, DataGrid& liste);

/// Whether the view has lost its filter by such an error: filter it before its rows are shown again.
bool brauchtFilter(const DataControl& daten);

/// What is to be current when the journal has been read anew: the first of these bookings that is on view, else what
/// stands at the place.
struct Wiederfinden {
    std::vector<qint64> IDs = {};
    qsizetype platz = 0;
};
void sucheEine(DataControl& daten, const Wiederfinden& gesucht);

/// Shows the rows of a restriction (see eingrenzung()) in their present order. The journal keeps its current booking
/// where it is still in view. \throws jet::Error.
void filtereJournal(DataControl& daten, DataGrid& liste, const QString& eingrenzung);
void filtereBestandsliste(DataControl& daten, DataGrid& liste, const QString& eingrenzung,
                          const Bestandsansicht& ansicht);

/// Sorts by a column, at a second call in the other direction. \throws jet::Error.
void sortiereJournal(DataControl& daten, DataGrid& liste, int spalte);
void sortiereBestandsliste(DataControl& daten, DataGrid& liste, int spalte);
