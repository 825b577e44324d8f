#include "platform/controls/GridWidths.h"

#include "platform/controls/DataGrid.h"
#include "platform/controls/GridHeader.h"

#include <QStyle>

using namespace Qt::StringLiterals;

GridWidths::GridWidths(DataGrid& grid, const GridModel& model, const GridHeader& header)
    : m_grid(grid), m_model(model), m_header(header)
{}

void GridWidths::makeRoomForMark(int column)
{
    const GridColumn& sorted = m_model.column(column);
    if (!m_sized || sorted.Width() > 0) return;
    m_grid.setColumnWidth(column,
                          qMax(m_grid.columnWidth(column), m_header.widthFor(sorted.Caption(), true)));
}

/// Widths that the texts of the columns need in rows from all over the list; those on view are often of one
/// kind.
std::vector<int> GridWidths::sampled() const
{
    constexpr int Rows = 40;       // each is read: more would be felt when a screen opens
    constexpr qsizetype Alike = 2; // characters by which a wider text may be shorter
    std::vector<int> widths(static_cast<std::size_t>(m_grid.ColumnCount()), 0);
    std::vector<qsizetype> longest(widths.size(), 0);
    const int rows = m_model.rowCount();
    const int samples = qMin(Rows, rows);
    for (int i = 0; i < samples; ++i) {
        const int row = int(qint64{i} * (rows - 1) / qMax(1, samples - 1));
        for (int column = 0; column < m_grid.ColumnCount(); ++column) {
            const QString text = m_model.index(row, column).data().toString();
            qsizetype& length = longest[static_cast<std::size_t>(column)];
            if (text.size() + Alike < length) continue; // measuring costs more than reading
            length = qMax(length, text.size());
            int& width = widths[static_cast<std::size_t>(column)];
            width = qMax(width, m_grid.fontMetrics().horizontalAdvance(text));
        }
    }
    return widths;
}

/// Once, with the first rows: later widths are the user's, and nothing moves while he works. What is left
/// beside the columns makes room for longer texts further down.
void GridWidths::size()
{
    if (m_sized || !m_grid.isVisible() || m_model.rowCount() == 0) return;
    m_sized = true;
    const std::vector<int> texts = sampled();
    int spare = m_grid.viewport()->width();
    int ofTexts = 0;
    std::vector<std::pair<int, int>> widths; // of the columns that have none yet
    for (int i = 0; i < m_grid.ColumnCount(); ++i) {
        const int set = m_model.column(i).Width();
        const int width = set > 0 ? set : needed(i, texts[static_cast<std::size_t>(i)]);
        if (set == 0) widths.emplace_back(i, width);
        if (m_grid.isColumnHidden(i)) continue;
        spare -= width;
        if (set == 0 && jet::isText(m_model.type(i))) ofTexts += width;
    }
    for (const auto& [i, width] : widths) {
        const bool grows = spare > 0 && !m_grid.isColumnHidden(i) && jet::isText(m_model.type(i));
        m_grid.setColumnWidth(i, grows ? width + spare * width / ofTexts : width);
    }
}

/// For the widest of the texts that were looked at, and for the caption.
int GridWidths::needed(int column, int text) const
{
    const int number = m_grid.fontMetrics().horizontalAdvance(u"99.999,99"_s); // room for those further down
    const int contents = m_model.showsNumbers(column) ? qMax(text, number) : qMin(text, mostForText());
    const bool sorted = m_header.isSortIndicatorShown() && m_header.sortIndicatorSection() == column;
    return qMax(contents + margin(), m_header.widthFor(m_model.column(column).Caption(), sorted));
}

/// One long name must not push the other columns out of sight.
int GridWidths::mostForText() const
{
    constexpr int Letters = 30; // most names of goods and partners
    return Letters * m_grid.fontMetrics().averageCharWidth();
}

/// What a cell has beside its text.
int GridWidths::margin() const
{
    return 2 * (m_grid.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &m_grid) + 2);
}

/// A figure that is cut can be taken for another one, so its column grows when it comes on view; that of a
/// text to a limit. Not one that the user has sized.
void GridWidths::widen()
{
    const int first = m_grid.rowAt(0);
    if (first < 0) return;
    const int below = m_grid.rowAt(m_grid.viewport()->height() - 1);
    const int last = below < 0 ? m_model.rowCount() - 1 : below;
    for (int column = 0; column < m_grid.ColumnCount(); ++column) {
        if (m_grid.isColumnHidden(column) || m_model.column(column).Width() > 0) continue;
        const int most = m_model.showsNumbers(column) ? QWIDGETSIZE_MAX : mostForText();
        if (m_grid.columnWidth(column) >= most + margin()) continue;
        int width = 0;
        for (int row = first; row <= last; ++row)
            width = qMax(
                width, m_grid.fontMetrics().horizontalAdvance(m_model.index(row, column).data().toString()));
        width = qMin(width, most) + margin();
        if (width > m_grid.columnWidth(column)) m_grid.setColumnWidth(column, width);
    }
}
