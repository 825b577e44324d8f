#pragma once

#include "platform/sheet/Spreadsheet.h"

#include <QString>

#include <functional>

class DataGrid;

/// Rows for a sheet, wherever they are.
struct SheetRows {
    std::vector<SheetColumn> columns;
    qsizetype count = 0;
    /// A stretch of them, a value for each column.
    std::function<std::vector<std::vector<jet::Value>>(int first, int count)> read;
    /// The formulas of a row, counted from 0, for each column; see Spreadsheet::addRow(). Empty: none. Row 0
    /// is called 2 in them, below the captions. Called by another thread.
    std::function<std::vector<QString>(int row)> formulas = {};
};

/// The family's component that hands a grid to the user's spreadsheet program: a file of one sheet with the
/// columns that are visible, their captions as its first row, and the rows in the order and choice of the
/// grid.
///
/// Rows are read one after the other while the file is written; so many of them take no more memory than a
/// few.
class GridExport {
public:
    /// Told now and then how much is done; false ends the work.
    using Progress = std::function<bool(qsizetype done, qsizetype all)>;

    /// Writes the file and opens it with the user's program, under the common error report.
    ///
    /// \param name what file and sheet are called; empty: the grid's title.
    /// \param directory where the file goes; empty: a directory in the user's temporary one, which stays when
    /// the program
    ///        ends, since the spreadsheet program may have the file open for longer.
    void Export(const DataGrid& grid, const QString& name, const QString& directory,
                const Progress& progress);
    /// The same of other rows; they have a name.
    void Export(const SheetRows& rows, const QString& name, const Progress& progress);

    /// Writes the file, parameters as above. A file that is there is left alone, since it may be open or the
    /// user may have worked on it: the new one is then called "Name (2).xlsx". \returns its path; empty:
    /// ended by `progress`, and nothing is left of it. \throws jet::Error, sys::FileError; nothing is left
    /// then either.
    QString Write(const DataGrid& grid, const QString& name, const QString& directory,
                  const Progress& progress);

private:
    QString write(const SheetRows& rows, const QString& title, const QString& directory,
                  const Progress& progress);
    QString ownDirectory();

    QString m_directory; // once it exists
};
