#include "platform/controls/GridDelete.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/system/Messages.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

bool userAgrees()
{
    return sys::messages().show(u"Soll die markierte Zeile gelöscht werden?"_s,
                                sys::YesNo | sys::Question | sys::DefaultButton2) == sys::Answer::Yes;
}

void leaveDeleted(DataControl& data, qsizetype position)
{
    const bool wasLast = position >= data.RecordCount();
    if (wasLast && position > 0)
        data.MoveLast();
    else
        data.MoveNext();
}

} // namespace

std::vector<jet::Bookmark> GridDelete::rowsToDelete(DataControl& data) const
{
    std::vector<jet::Bookmark> bookmarks;
    if (m_grid.SelBookmarks().Count() > 1)
        for (const int row : m_grid.SelBookmarks().rows())
            bookmarks.push_back(data.Recordset().BookmarkAt(row));
    else if (data.AbsolutePosition() >= 0)
        bookmarks.push_back(m_grid.Bookmark());
    return bookmarks;
}

void GridDelete::run(DataControl& data)
{
    if (data.RecordCount() == 0) return;
    if (m_deleting) return deleteCurrent(data);
    const bool selected = m_grid.selectionModel()->hasSelection();
    {
        const auto ended = qScopeGuard([this] { Q_EMIT m_grid.DeletesEnded(); });
        deleteAll(data, rowsToDelete(data));
    }
    if (selected && !m_grid.selectionModel()->hasSelection()) selectOnlyCurrent();
}

void GridDelete::deleteAll(DataControl& data, const std::vector<jet::Bookmark>& bookmarks)
{
    const QScopedValueRollback deleting(m_deleting, true);
    const QScopedValueRollback several(m_several, bookmarks.size() > 1);
    const QString source = data.RecordSource();
    m_ended = false;
    for (const jet::Bookmark& bookmark : bookmarks) {
        if (!makeCurrent(data, bookmark, source)) continue;
        if (m_several) selectOnlyCurrent();
        deleteCurrent(data);
        if (m_ended) return;
    }
}

/// So that the user sees which row he is asked about.
void GridDelete::selectOnlyCurrent() const
{
    const QModelIndex current = m_grid.currentIndex();
    if (!current.isValid()) return;
    m_grid.selectionModel()->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_grid.scrollTo(current);
}

/// Whether the row could be made current: it may have gone with its partner, or the handlers of the row
/// before may have refreshed the rows, after which it is found again by its key.
bool GridDelete::makeCurrent(DataControl& data, const jet::Bookmark& bookmark, const QString& source) const
{
    const jet::Recordset& rows = m_grid.rows();
    qsizetype position = rows.PositionOf(bookmark);
    if (position < 0 && data.RecordSource() == source) position = rows.PositionOf(rows.SameRow(bookmark));
    if (position < 0) return false;
    if (position != data.AbsolutePosition()) data.MoveTo(position);
    return data.AbsolutePosition() == position;
}

void GridDelete::deleteCurrent(DataControl& data) const
{
    const auto ended = qScopeGuard([this] { Q_EMIT m_grid.DeleteEnded(); });
    Cancel cancel;
    bool prompt = true;
    Q_EMIT m_grid.BeforeDelete(cancel, prompt);
    if (cancel || (prompt && !userAgrees())) return;
    const qsizetype position = data.AbsolutePosition();
    const qsizetype count = data.RecordCount();
    data.Delete();
    if (data.RecordCount() == count) return; // forbidden by a handler of Validate
    leaveDeleted(data, position);
    Q_EMIT m_grid.AfterDelete();
}
