#include "platform/controls/DataGrid.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/GridHeader.h"
#include "platform/controls/GridSearch.h"
#include "platform/jet/Errors.h"
#include "platform/system/ErrorReport.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

void dim(QPalette& palette)
{
    const QColor light = palette.color(QPalette::Highlight), ground = palette.color(QPalette::Window);
    constexpr int Light = 1, Ground = 2; // parts
    const auto mixed = [](int a, int b) { return (Light * a + Ground * b) / (Light + Ground); };
    palette.setColor(QPalette::Highlight, QColor(mixed(light.red(), ground.red()), mixed(light.green(), ground.green()),
                                                 mixed(light.blue(), ground.blue())));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
}

/// Highlights the current row as well: fully while no row is selected, faintly beside others that are. In a grid that keys
/// do not go to, highlights are mixed with the ground: the greys of a dark palette are often its usual colours.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// A frame shows the column that is searched.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const auto* const grid = qobject_cast<const DataGrid*>(option.widget);
        if (!grid || !grid->hasFocus() || grid->currentIndex() != index) return;
        painter->setPen(option.palette.color(QPalette::HighlightedText));
        painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto* const grid = qobject_cast<const DataGrid*>(option->widget);
        if (grid && !grid->hasFocus()) dim(option->palette);
        if (!grid || grid->currentIndex().row() != index.row() || option->state.testFlag(QStyle::State_Selected))
            return;
        if (!grid->selectionModel()->hasSelection()) {
            option->state |= QStyle::State_Selected;
            return;
        }
        constexpr int Faint = 60;
        QColor tint = option->palette.color(QPalette::Highlight);
        tint.setAlpha(Faint);
        option->backgroundBrush = tint;
    }
};

} // namespace

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent), m_model(new GridModel(this)), m_header(new GridHeader(this)),
      m_search(new GridSearch(*this, *m_model, *m_header)), m_selected(*this)
{
    setHorizontalHeader(m_header);
    setModel(m_model);
    setItemDelegate(new RowDelegate(this));
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    sizeRows();
    connect(m_header, &QHeaderView::sectionClicked, this, &DataGrid::HeadClick);
    connect(m_header, &GridHeader::resizedByUser, this, [this](int i, int width) { Columns(i).setWidth(width); });
    connect(m_header, &GridHeader::emptyClicked, this, [this] { Q_EMIT HeadClick(-1); });
}

void DataGrid::setDataSource(DataControl& source)
{
    if (m_data) m_data->disconnect(this);
    m_data = &source;
    m_model->setSource(m_data);
    connect(m_data, &DataControl::RowsReplaced, this, &DataGrid::rowsReplaced);
    connect(m_data, &DataControl::RowAdded, m_model, &GridModel::appendRow);
    connect(m_data, &DataControl::RowChanged, m_model, [this](qsizetype row) { m_model->rereadRow(int(row)); });
    connect(m_data, &DataControl::RowRemoved, this, &DataGrid::rowRemoved);
    connect(m_data, &DataControl::CurrentChanged, this, &DataGrid::follow);
    connect(m_data, &QObject::destroyed, this, &DataGrid::rowsReplaced);
    rowsReplaced();
    follow();
}

GridColumn& DataGrid::addColumn(const QString& caption, const QString& field, const QString& numberFormat)
{
    GridColumn& column = m_model->addColumn();
    column.setCaption(caption);
    column.setDataField(field);
    column.setNumberFormat(numberFormat);
    const int index = ColumnCount() - 1;
    connect(&column, &GridColumn::Changed, this, [this, &column, index] { setColumnHidden(index, !column.Visible()); });
    connect(&column, &GridColumn::WidthChanged, this,
            [this, &column, index] { setColumnWidth(index, column.Width()); });
    return column;
}

GridColumn& DataGrid::Columns(int index) const
{
    if (index < 0 || index >= ColumnCount()) jet::raise(jet::ErrorNumber::NoSuchField);
    return m_model->column(index);
}

GridColumn& DataGrid::Columns(QStringView field) const
{
    for (int i = 0; i < ColumnCount(); ++i)
        if (field.compare(Columns(i).DataField(), Qt::CaseInsensitive) == 0) return Columns(i);
    jet::raise(jet::ErrorNumber::NoSuchField);
}

int DataGrid::ColumnCount() const
{
    return m_model->columnCount();
}

void DataGrid::setBlank(GridModel::Blank blank)
{
    m_model->setBlank(std::move(blank));
    viewport()->update();
}

QString DataGrid::Caption() const
{
    return m_header->Caption();
}

void DataGrid::setCaption(const QString& caption)
{
    m_header->setCaption(caption);
    setAccessibleName(caption);
}

void DataGrid::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

void DataGrid::setClosedText(const QString& text)
{
    m_closedText = text;
    viewport()->update();
}

const jet::Recordset& DataGrid::rows() const
{
    if (!m_data) jet::raise(jet::ErrorNumber::ObjectClosed);
    return m_data->Recordset();
}

jet::Bookmark DataGrid::Bookmark() const
{
    return rows().GetBookmark();
}

void DataGrid::setBookmark(const jet::Bookmark& bookmark)
{
    rows();
    m_data->setBookmark(bookmark);
}

void DataGrid::showSort(int column, Qt::SortOrder order)
{
    m_header->setSortIndicatorShown(column >= 0);
    m_header->setSortIndicator(column, order);
    if (column < 0 || !m_sized || Columns(column).Width() > 0) return;
    setColumnWidth(column, qMax(columnWidth(column), m_header->widthFor(Columns(column).Caption(), true)));
}

void DataGrid::rowsReplaced()
{
    rememberView();
    const QScopedValueRollback following(m_following, true);
    m_model->reload();
    sizeColumns();
}

/// For the rows that stand there when the handler that reads them anew has found the current one again: nothing jumps.
void DataGrid::rememberView()
{
    const int top = rowAt(0);
    if (m_view || top < 0 || !currentIndex().isValid()) return;
    m_view = View{currentIndex().row() - top, horizontalScrollBar()->value()};
    QMetaObject::invokeMethod(
        this, [this] { m_view.reset(); }, Qt::QueuedConnection);
}

void DataGrid::rowRemoved(qsizetype row)
{
    const QScopedValueRollback following(m_following, true);
    m_model->removeRow(int(row));
}

bool DataGrid::selectsOnly(int row) const
{
    return row >= 0 && selectionModel()->isRowSelected(row) && m_selected.Count() == 1;
}

/// Makes the data control's current row that of the grid.
void DataGrid::follow()
{
    const int row = m_data ? int(m_data->AbsolutePosition()) : -1;
    const QModelIndex old = currentIndex();
    if (row >= 0) m_model->rereadRow(row);
    if (row == old.row()) return;
    const QScopedValueRollback following(m_following, true);
    const auto select = selectsOnly(old.row()) ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                                               : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
    const int column = m_column >= 0 ? m_column : qMax(0, m_header->logicalIndexAt(0));
    selectionModel()->setCurrentIndex(m_model->index(row, column), select);
    if (!m_view) return;
    verticalScrollBar()->setValue(row - m_view->above);
    horizontalScrollBar()->setValue(m_view->left);
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    m_search->end();
    if (current.isValid()) m_column = current.column();
    viewport()->update(); // whole rows are drawn as current
    if (m_following || !m_data || current.row() < 0 || current.row() == m_data->AbsolutePosition()) return;
    sys::underErrorReport({[&] { m_data->MoveTo(current.row()); }});
    follow(); // the move may have been refused
}

/// After what the user did, as when he took one of two rows out of the selection with Ctrl, or was kept where he was.
void DataGrid::selectCurrentAsTheOnlyOne()
{
    if (m_selected.Count() != 1 || selectsOnly(currentIndex().row()) || !currentIndex().isValid()) return;
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void DataGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    viewport()->update();
}

QModelIndex DataGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const int column = qMax(0, currentIndex().column());
    if (action == MoveHome) return m_model->index(0, column);
    if (action == MoveEnd) return m_model->index(m_model->rowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

void DataGrid::keyPressEvent(QKeyEvent* event)
{
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier; // the number block has the key, too
    if (event->key() == Qt::Key_Delete && modifiers == Qt::NoModifier) {
        if (m_allowDelete && !event->isAutoRepeat()) sys::underErrorReport({[this] { Delete(); }});
    } else if (event->key() == Qt::Key_C && modifiers == Qt::ControlModifier) {
        sys::underErrorReport({[this] { Copy(); }});
    } else if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
        // With Ctrl as without: the row they lead to is selected.
        QKeyEvent plain(event->type(), event->key(), event->modifiers() & ~Qt::ControlModifier);
        QTableView::keyPressEvent(&plain);
    } else if (!m_search->press(*event)) {
        QTableView::keyPressEvent(event);
    }
    selectCurrentAsTheOnlyOne();
}

void DataGrid::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    selectCurrentAsTheOnlyOne();
    // A row that the edge cuts is shown whole, but only when no second click can follow that would hit another one.
    QTimer::singleShot(QApplication::doubleClickInterval(), this, [this] { scrollTo(currentIndex()); });
}

void DataGrid::keyboardSearch(const QString& text)
{
    m_search->type(text);
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const bool onRow = event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid();
    QTableView::mouseDoubleClickEvent(event);
    if (onRow) Q_EMIT DblClick();
}

void DataGrid::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    m_model->rereadRows(); // other programs may have been at work meanwhile
}

void DataGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) sizeRows();
}

/// A text that its column cuts is shown whole beside the pointer.
bool DataGrid::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = index.data().toString();
    const bool cut = index.isValid() && fontMetrics().horizontalAdvance(text) + margin() > visualRect(index).width();
    QToolTip::showText(help->globalPos(), cut ? text : toolTip(), this);
    return true;
}

void DataGrid::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    sizeColumns();
}

/// The toolkit puts the last row to the lower edge, and half a row to the upper one.
void DataGrid::keepTopRowWhole()
{
    const QScrollBar* const bar = verticalScrollBar();
    if (bar->value() < bar->maximum() || bar->maximum() == 0) return;
    verticalHeader()->setOffsetToSectionPosition(bar->value());
    viewport()->update();
}

void DataGrid::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    keepTopRowWhole();
}

void DataGrid::updateGeometries()
{
    QTableView::updateGeometries();
    keepTopRowWhole();
}

void DataGrid::sizeRows()
{
    const int height =
        fontMetrics().lineSpacing() + 2 * style()->pixelMetric(QStyle::PM_FocusFrameVMargin, nullptr, this);
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

/// Widths that the texts of the columns need in rows from all over the list; those on view are often of one kind.
std::vector<int> DataGrid::sampledWidths() const
{
    constexpr int Rows = 40;       // each is read: more would be felt when a screen opens
    constexpr qsizetype Alike = 2; // characters by which a wider text may be shorter
    std::vector<int> widths(static_cast<std::size_t>(ColumnCount()), 0);
    std::vector<qsizetype> longest(widths.size(), 0);
    const int rows = m_model->rowCount();
    const int samples = qMin(Rows, rows);
    for (int i = 0; i < samples; ++i) {
        const int row = int(qint64{i} * (rows - 1) / qMax(1, samples - 1));
        for (int column = 0; column < ColumnCount(); ++column) {
            const QString text = m_model->index(row, column).data().toString();
            qsizetype& length = longest[static_cast<std::size_t>(column)];
            if (text.size() + Alike < length) continue; // measuring costs more than reading
            length = qMax(length, text.size());
            int& width = widths[static_cast<std::size_t>(column)];
            width = qMax(width, fontMetrics().horizontalAdvance(text));
        }
    }
    return widths;
}

/// Once, with the first rows: later widths are the user's, and nothing moves while he works. What is left beside the columns
/// makes room for longer texts further down.
void DataGrid::sizeColumns()
{
    if (m_sized || !isVisible() || m_model->rowCount() == 0) return;
    m_sized = true;
    const std::vector<int> texts = sampledWidths();
    int spare = viewport()->width();
    int ofTexts = 0;
    std::vector<std::pair<int, int>> widths; // of the columns that have none yet
    for (int i = 0; i < ColumnCount(); ++i) {
        const int set = m_model->column(i).Width();
        const int width = set > 0 ? set : neededWidth(i, texts[static_cast<std::size_t>(i)]);
        if (set == 0) widths.emplace_back(i, width);
        if (isColumnHidden(i)) continue;
        spare -= width;
        if (set == 0 && jet::isText(m_model->type(i))) ofTexts += width;
    }
    for (const auto& [i, width] : widths) {
        const bool grows = spare > 0 && !isColumnHidden(i) && jet::isText(m_model->type(i));
        setColumnWidth(i, grows ? width + spare * width / ofTexts : width);
    }
}

/// For the widest of the texts that were looked at, and for the caption.
int DataGrid::neededWidth(int column, int text) const
{
    const int number = fontMetrics().horizontalAdvance(u"99.999,99"_s); // room for those further down
    const int contents = m_model->showsNumbers(column) ? qMax(text, number) : qMin(text, mostForText());
    const bool sorted = m_header->isSortIndicatorShown() && m_header->sortIndicatorSection() == column;
    return qMax(contents + margin(), m_header->widthFor(m_model->column(column).Caption(), sorted));
}

/// One long name must not push the other columns out of sight.
int DataGrid::mostForText() const
{
    constexpr int Letters = 30; // most names of goods and partners
    return Letters * fontMetrics().averageCharWidth();
}

/// What a cell has beside its text.
int DataGrid::margin() const
{
    return 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 2);
}

/// A figure that is cut can be taken for another one, so its column grows when it comes on view; that of a text to a limit.
/// Not one that the user has sized.
void DataGrid::widenForContents()
{
    const int first = rowAt(0);
    if (first < 0) return;
    const int below = rowAt(viewport()->height() - 1);
    const int last = below < 0 ? m_model->rowCount() - 1 : below;
    for (int column = 0; column < ColumnCount(); ++column) {
        if (isColumnHidden(column) || m_model->column(column).Width() > 0) continue;
        const int most = m_model->showsNumbers(column) ? QWIDGETSIZE_MAX : mostForText();
        if (columnWidth(column) >= most + margin()) continue;
        int width = 0;
        for (int row = first; row <= last; ++row)
            width = qMax(width, fontMetrics().horizontalAdvance(m_model->index(row, column).data().toString()));
        width = qMin(width, most) + margin();
        if (width > columnWidth(column)) setColumnWidth(column, width);
    }
}

void DataGrid::paintEvent(QPaintEvent* event)
{
    widenForContents();
    QTableView::paintEvent(event);
    const QString& text = m_data && m_data->isOpen() ? m_emptyText : m_closedText;
    if (m_model->rowCount() > 0 || text.isEmpty()) return;
    QPainter painter(viewport());
    constexpr int Grey = 150;
    QColor grey = palette().color(QPalette::Text);
    grey.setAlpha(Grey);
    painter.setPen(grey);
    const int margin = verticalHeader()->defaultSectionSize() / 2;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap, text);
}

void DataGrid::Copy()
{
    std::vector<int> copied = m_selected.rows();
    if (copied.empty() && currentIndex().isValid()) copied = {currentIndex().row()};
    if (copied.empty()) return;
    QStringList captions;
    for (int i = 0; i < ColumnCount(); ++i)
        if (!isColumnHidden(i)) captions.append(m_model->column(i).Caption());
    QString text = captions.join(u'\t') + u'\n';
    for (const int row : copied) {
        const QStringList texts = m_model->texts(row);
        QStringList shown;
        for (int i = 0; i < ColumnCount(); ++i)
            if (!isColumnHidden(i)) shown.append(texts[i]);
        text += shown.join(u'\t') + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
}
