#pragma once

#include "platform/jet/Recordset.h"

#include <vector>

class DataGrid;

/// The rows of a grid that are selected, in the order in which they stand. Which row is current is another
/// matter.
class SelectedRows {
public:
    explicit SelectedRows(DataGrid& grid) : m_grid(grid) {}

    void Add(const jet::Bookmark& bookmark); ///< \throws jet::Error InvalidBookmark.
    void Remove(int index); ///< From 0. \throws jet::Error InvalidBookmark; so does operator[].
    void RemoveAll();
    int Count() const;
    jet::Bookmark operator[](int index) const;

    std::vector<int> rows() const; ///< Their places, ascending.

private:
    int rowAt(int index) const;
    DataGrid& m_grid;
};
