#include "platform/controls/ListField.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTreeView>

#include <algorithm>

ListField::ListField(QWidget* parent) : ComboField(parent)
{
    constexpr int Rows = 20; // a farm's kinds of articles without scrolling
    setMaxVisibleItems(Rows);
    connect(lineEdit(), &QLineEdit::textEdited, this, &ListField::complete);
    lineEdit()->installEventFilter(this);
}

void ListField::setListOnly(bool listOnly)
{
    m_listOnly = listOnly;
    lineEdit()->setCursor(listOnly ? Qt::ArrowCursor : Qt::IBeamCursor);
}

QString ListField::meant(const QString& text) const
{
    const int row = rowOf(text);
    return row < 0 ? text : entry(row);
}

/// Null: there is none.
QString ListField::completion(const QString& begun) const
{
    const QStringList found = beginning(begun, m_listOnly ? 1 : 2);
    return found.size() == 1 ? found.first() : QString();
}

void ListField::complete(const QString& begun)
{
    const bool atEnd = !m_deletes && lineEdit()->cursorPosition() == begun.size();
    QString head = begun;
    QString found = atEnd ? completion(head) : QString();
    if (found.isNull() && atEnd && m_listOnly) { // begin anew with the last character
        head = begun.right(1);
        found = completion(head);
    }
    if (found.isNull() && !m_listOnly) return;
    if (found.isNull()) { // not taken
        found = knownText();
        head = found.left(m_typedAt);
    }
    completeText(m_listOnly ? found : head + found.mid(head.size()));
    lineEdit()->setSelection(static_cast<int>(found.size()), static_cast<int>(head.size() - found.size()));
}

void ListField::keyPressEvent(QKeyEvent* event)
{
    const bool deletes = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete ||
                         event->matches(QKeySequence::Cut) || event->matches(QKeySequence::Undo) ||
                         event->matches(QKeySequence::Redo);
    const QScopedValueRollback deleting(m_deletes, deletes);
    m_typedAt = lineEdit()->hasSelectedText() ? lineEdit()->selectionStart() : lineEdit()->cursorPosition();
    ComboField::keyPressEvent(event);
}

bool ListField::eventFilter(QObject* watched, QEvent* event)
{
    if (m_listOnly && watched == lineEdit() && event->type() == QEvent::MouseButtonPress) {
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && isEnabled()) showPopup();
        return true;
    }
    return ComboField::eventFilter(watched, event);
}

void ListField::showAsTable()
{
    auto* const view = new QTreeView(this);
    view->setRootIsDecorated(false);
    view->setItemsExpandable(false);
    view->setUniformRowHeights(true); // the height of one row is that of all; none of the others is read
    view->setAllColumnsShowFocus(true);
    view->header()->setStretchLastSection(true);
    view->header()->setSectionsClickable(false);
    constexpr int MeasuredRows = 100; // beyond those on view; not all, of a long list
    view->header()->setResizeContentsPrecision(MeasuredRows);
    setView(view);
}

/// Gives the columns of a table the width that their rows need, and the drop-down that of the columns.
void ListField::fitList()
{
    auto* const table = qobject_cast<QTreeView*>(view());
    if (!table) return;
    int width = 2 * table->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        table->resizeColumnToContents(column);
        width += table->columnWidth(column);
    }
    table->setMinimumWidth(std::min(width, screen()->availableGeometry().width()));
}
