#include "platform/controls/SelectedRows.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/jet/Errors.h"

#include <QItemSelectionModel>

#include <algorithm>

void SelectedRows::Add(const jet::Bookmark& bookmark)
{
    const qsizetype row = m_grid.rows().PositionOf(bookmark);
    if (row < 0) jet::raise(jet::ErrorNumber::InvalidBookmark);
    const QModelIndex index = m_grid.model()->index(static_cast<int>(row), 0);
    m_grid.selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void SelectedRows::Remove(int index)
{
    const QModelIndex row = m_grid.model()->index(rowAt(index), 0);
    m_grid.selectionModel()->select(row, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

void SelectedRows::RemoveAll()
{
    m_grid.selectionModel()->clearSelection();
}

int SelectedRows::Count() const
{
    return static_cast<int>(rows().size());
}

jet::Bookmark SelectedRows::operator[](int index) const
{
    return m_grid.rows().BookmarkAt(rowAt(index));
}

std::vector<int> SelectedRows::rows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : m_grid.selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

int SelectedRows::rowAt(int index) const
{
    const auto selected = rows();
    if (index < 0 || index >= static_cast<int>(selected.size()))
        jet::raise(jet::ErrorNumber::InvalidBookmark);
    return selected[static_cast<std::size_t>(index)];
}
