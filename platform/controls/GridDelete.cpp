#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/system/Messages.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

// How a DataGrid deletes rows.

using namespace Qt::StringLiterals;

namespace {

bool userAgrees()
{
    return sys::messages().show(u"Soll die markierte Zeile gelöscht werden?"_s,
                                sys::YesNo | sys::Question | sys::DefaultButton2) == sys::Answer::Yes;
}

} // namespace

std::vector<jet::Bookmark> DataGrid::rowsToDelete() const
{
    std::vector<jet::Bookmark> bookmarks;
    if (m_selected.Count() > 1)
        for (const int row : m_selected.rows())
            bookmarks.push_back(rows().BookmarkAt(row));
    else if (m_data->AbsolutePosition() >= 0)
        bookmarks.push_back(Bookmark());
    return bookmarks;
}

void DataGrid::Delete()
{
    if (!m_data || m_data->RecordCount() == 0) return;
    if (m_deleting) return deleteCurrent();
    const bool selected = selectionModel()->hasSelection();
    {
        const auto ended = qScopeGuard([this] { Q_EMIT DeletesEnded(); });
        deleteAll(rowsToDelete());
    }
    if (selected && !selectionModel()->hasSelection()) selectOnlyCurrent();
}

void DataGrid::deleteAll(const std::vector<jet::Bookmark>& bookmarks)
{
    const QScopedValueRollback deleting(m_deleting, true);
    const QScopedValueRollback several(m_several, bookmarks.size() > 1);
    const QString source = m_data->RecordSource();
    m_endsDeletes = false;
    for (const jet::Bookmark& bookmark : bookmarks) {
        if (!makeCurrent(bookmark, source)) continue;
        if (m_several) selectOnlyCurrent();
        deleteCurrent();
        if (m_endsDeletes) return;
    }
}

/// So that the user sees which row he is asked about.
void DataGrid::selectOnlyCurrent()
{
    if (!currentIndex().isValid()) return;
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(currentIndex());
}

/// Whether the row could be made current: it may have gone with its partner, or the handlers of the row before may have
/// refreshed the rows, after which it is found again by its key.
bool DataGrid::makeCurrent(const jet::Bookmark& bookmark, const QString& source)
{
    qsizetype position = rows().PositionOf(bookmark);
    if (position < 0 && m_data->RecordSource() == source) position = rows().PositionOf(rows().SameRow(bookmark));
    if (position < 0) return false;
    if (position != m_data->AbsolutePosition()) m_data->MoveTo(position);
    return m_data->AbsolutePosition() == position;
}

void DataGrid::deleteCurrent()
{
    const auto ended = qScopeGuard([this] { Q_EMIT DeleteEnded(); });
    Cancel cancel;
    bool prompt = true;
    Q_EMIT BeforeDelete(cancel, prompt);
    if (cancel || (prompt && !userAgrees())) return;
    const qsizetype position = m_data->AbsolutePosition();
    const qsizetype count = m_data->RecordCount();
    m_data->Delete();
    if (m_data->RecordCount() == count) return; // forbidden by a handler of Validate
    leaveDeleted(position);
    Q_EMIT AfterDelete();
}

void DataGrid::leaveDeleted(qsizetype position)
{
    const bool wasLast = position >= m_data->RecordCount();
    if (wasLast && position > 0)
        m_data->MoveLast();
    else
        m_data->MoveNext();
}
