#pragma once

#include <vector>

class DataGrid;
class GridHeader;
class GridModel;

/// The widths that the columns of a grid get by what stands in them; those that the user or the screen has
/// set stay.
class GridWidths {
public:
    GridWidths(DataGrid& grid, const GridModel& model, const GridHeader& header);

    void size();                      ///< When the first rows are on view.
    void widen();                     ///< For what has come on view since.
    void makeRoomForMark(int column); ///< Of the order.
    int margin() const;               ///< What a cell has beside its text, in pixels.

private:
    std::vector<int> sampled() const;
    int needed(int column, int text) const;
    int mostForText() const;

    DataGrid& m_grid;
    const GridModel& m_model;
    const GridHeader& m_header;
    bool m_sized = false; // columns have got the width that the first rows needed
};
