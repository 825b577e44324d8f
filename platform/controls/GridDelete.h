#pragma once

#include "platform/jet/Recordset.h"

#include <QString>

#include <vector>

class DataControl;
class DataGrid;

/// How a grid deletes rows: one after the other, each asked about by the handlers of the grid.
class GridDelete {
public:
    explicit GridDelete(DataGrid& grid) : m_grid(grid) {}

    void run(DataControl& data); ///< See DataGrid::Delete(). \throws jet::Error
    bool isOfSeveral() const { return m_several; }
    void end() { m_ended = true; } ///< No further row is to be asked about.

private:
    std::vector<jet::Bookmark> rowsToDelete(DataControl& data) const;
    void deleteAll(DataControl& data, const std::vector<jet::Bookmark>& bookmarks);
    bool makeCurrent(DataControl& data, const jet::Bookmark& bookmark, const QString& source) const;
    void selectOnlyCurrent() const;
    void deleteCurrent(DataControl& data) const;

    DataGrid& m_grid;
    bool m_deleting = false;
    bool m_several = false;
    bool m_ended = false;
};
