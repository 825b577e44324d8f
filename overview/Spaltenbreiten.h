#pragma once

#include <QString>

class DataGrid;

/// The widths that the user has given to a grid's columns, as a text to remember: "0,120,0", in pixels; 0 is
/// as the contents need.
QString spaltenbreiten(const DataGrid& liste);
void stelleSpaltenbreiten(DataGrid& liste,
                          const QString& breiten); ///< Leaves alone what the text does not tell.
