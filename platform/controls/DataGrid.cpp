#include "platform/controls/DataGrid.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/GridDelegate.h"
#include "platform/controls/GridDelete.h"
#include "platform/controls/GridHeader.h"
#include "platform/controls/GridSearch.h"
#include "platform/controls/GridWidths.h"
#include "platform/jet/Errors.h"
#include "platform/system/ErrorReport.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent), m_model(new GridModel(this)), m_header(new GridHeader(this)),
      m_search(new GridSearch(*this, *m_model, *m_header)),
      m_widths(std::make_unique<GridWidths>(*this, *m_model, *m_header)),
      m_delete(std::make_unique<GridDelete>(*this)), m_selected(*this)
{
    setHorizontalHeader(m_header);
    setModel(m_model);
    setItemDelegate(new GridDelegate(*this));
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
    connect(m_header, &GridHeader::resizedByUser, this,
            [this](int i, int width) { Columns(i).setWidth(width); });
    connect(m_header, &GridHeader::emptyClicked, this, [this] { Q_EMIT HeadClick(-1); });
}

DataGrid::~DataGrid() = default;

void DataGrid::setDataSource(DataControl& source)
{
    if (m_data) m_data->disconnect(this);
    m_data = &source;
    m_model->setSource(m_data);
    connect(m_data, &DataControl::RowsReplaced, this, &DataGrid::rowsReplaced);
    connect(m_data, &DataControl::RowAdded, m_model, &GridModel::appendRow);
    connect(m_data, &DataControl::RowChanged, m_model,
            [this](qsizetype row) { m_model->rereadRow(int(row)); });
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
    connect(&column, &GridColumn::Changed, this,
            [this, &column, index] { setColumnHidden(index, !column.Visible()); });
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
    if (column >= 0) m_widths->makeRoomForMark(column);
}

void DataGrid::rowsReplaced()
{
    rememberView();
    const QScopedValueRollback following(m_following, true);
    m_model->reload();
    m_widths->size();
}

/// For the rows that stand there when the handler that reads them anew has found the current one again:
/// nothing jumps.
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
    const auto select = selectsOnly(old.row())
                            ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
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

/// After what the user did, as when he took one of two rows out of the selection with Ctrl, or was kept where
/// he was.
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

void DataGrid::Delete()
{
    if (m_data) m_delete->run(*m_data);
}

bool DataGrid::DeletesSeveral() const
{
    return m_delete->isOfSeveral();
}

void DataGrid::EndDeletes()
{
    m_delete->end();
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
    // A row that the edge cuts is shown whole, but only when no second click can follow that would hit
    // another one.
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
    const bool cut = index.isValid() &&
                     fontMetrics().horizontalAdvance(text) + m_widths->margin() > visualRect(index).width();
    QToolTip::showText(help->globalPos(), cut ? text : toolTip(), this);
    return true;
}

void DataGrid::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    m_widths->size();
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

void DataGrid::paintEvent(QPaintEvent* event)
{
    m_widths->widen();
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
