#pragma once

#include <QStyledItemDelegate>

class DataGrid;

/// Highlights the current row as well: fully while no row is selected, faintly beside others that are. In a
/// grid that keys do not go to, highlights are mixed with the ground: the greys of a dark palette are often
/// its usual colours.
class GridDelegate : public QStyledItemDelegate {
public:
    explicit GridDelegate(DataGrid& grid);

    /// A frame shows the column that is searched.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const DataGrid& m_grid;
};
