#pragma once

#include <QColor>
#include <QString>

class DataControl;
class DataGrid;

/// What a click on a column's header sorts by, where that is not simply its data field.
struct Sortierung {
    /// Instead of the field; not bracketed, since in brackets an aggregate would be a name.
    QString ausdruck = {};
    QString zweitesFeld = {}; ///< A second key; not used where it is the column's own field.
};

/// The colour of the header that the rows are sorted by.
constexpr QRgb Sortiermarke = qRgb(0, 0, 192);

/// Sorts the rows by a column of the grid, the answer to a click on its header: ascending, or descending if
/// it sorts ascending already. A column below 0 sorts nothing, but pending changes are written all the same.
///
/// The record source is cut at the first "order" in it, values included. \throws jet::Error, as when such a
/// cut makes a text that the database refuses; no header is marked then and the data control is closed.
void GridSortieren(DataControl& data, DataGrid& grid, int spalte, const Sortierung& sortierung = {});

/// The same before the rows are opened: the column is marked, and the next Refresh brings them sorted.
void GridVorsortieren(DataControl& data, DataGrid& grid, int spalte, const Sortierung& sortierung = {});

/// Takes the mark off all headers, for rows that are in another order now.
void SortiermarkeLoschen(DataGrid& grid);
