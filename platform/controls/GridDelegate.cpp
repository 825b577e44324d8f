#include "platform/controls/GridDelegate.h"

#include "platform/controls/DataGrid.h"

#include <QPainter>

namespace {

void dim(QPalette& palette)
{
    const QColor light = palette.color(QPalette::Highlight), ground = palette.color(QPalette::Window);
    constexpr int Light = 1, Ground = 2; // parts
    const auto mixed = [](int a, int b) { return (Light * a + Ground * b) / (Light + Ground); };
    palette.setColor(QPalette::Highlight,
                     QColor(mixed(light.red(), ground.red()), mixed(light.green(), ground.green()),
                            mixed(light.blue(), ground.blue())));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
}

} // namespace

GridDelegate::GridDelegate(DataGrid& grid) : QStyledItemDelegate(&grid), m_grid(grid) {}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!m_grid.hasFocus() || m_grid.currentIndex() != index) return;
    painter->setPen(option.palette.color(QPalette::HighlightedText));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!m_grid.hasFocus()) dim(option->palette);
    if (m_grid.currentIndex().row() != index.row() || option->state.testFlag(QStyle::State_Selected)) return;
    if (!m_grid.selectionModel()->hasSelection()) {
        option->state |= QStyle::State_Selected;
        return;
    }
    constexpr int Faint = 60;
    QColor tint = option->palette.color(QPalette::Highlight);
    tint.setAlpha(Faint);
    option->backgroundBrush = tint;
}
