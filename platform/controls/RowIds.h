#pragma once

#include <QtGlobal>

#include <optional>

class DataControl;

// Rows of a data control by the number in their column `ID`, which stays the same when the rows are read
// anew.

/// Of the row at a place, counted from 0; nothing where there is none, or none any more.
std::optional<qint64> idAt(const DataControl& data, qsizetype position);
std::optional<qint64> currentId(const DataControl& data); ///< Of the current row.
/// Makes the row current, if there is one with that number; NoMatch tells.
void findId(DataControl& data, std::optional<qint64> id);
