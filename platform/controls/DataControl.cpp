#include "platform/controls/DataControl.h"

#include "platform/controls/BoundField.h"
#include "platform/jet/Errors.h"

#include <QScopeGuard>

#include <algorithm>

DataControl::DataControl(QObject* parent) : QObject(parent) {}

DataControl::~DataControl() = default;

void DataControl::Refresh()
{
    shut();
    auto announceNone = qScopeGuard([this] { announceRows(); });
    open();
    announceNone.dismiss();
    announceRows();
}

void DataControl::open()
{
    auto database = jet::engine().OpenDatabase(m_databaseName, m_connect);
    const jet::ChangeMark mark = database->Mark();
    m_recordset = database->OpenRecordset(m_recordSource, m_kind);
    m_database = std::move(database);
    m_shownSource = m_recordSource;
    m_mark = mark;
}

void DataControl::RefreshIfChanged()
{
    const bool isCopy = isOpen() && m_kind == jet::Kind::Snapshot && m_shownSource == m_recordSource;
    if (!isCopy || jet::engine().OpenDatabase(m_databaseName, m_connect)->Mark() != m_mark) Refresh();
}

void DataControl::shut()
{
    m_recordset.reset();
    m_database.reset();
}

void DataControl::announceRows()
{
    Q_EMIT RowsReplaced();
    moved();
}

void DataControl::Close()
{
    if (!isOpen() || !leaves(Action::Close)) return;
    shut();
    Q_EMIT RowsReplaced();
    m_bound.show(m_recordset.get());
}

jet::Recordset& DataControl::rows() const
{
    if (!isOpen()) jet::raise(jet::ErrorNumber::ObjectClosed);
    return *m_recordset;
}

const jet::Recordset& DataControl::Recordset() const
{
    return rows();
}

jet::Database& DataControl::Database() const
{
    if (!isOpen()) jet::raise(jet::ErrorNumber::ObjectClosed);
    return *m_database;
}

qsizetype DataControl::RecordCount() const
{
    return isOpen() ? m_recordset->RecordCount() : 0;
}

qsizetype DataControl::AbsolutePosition() const
{
    return isOpen() ? m_recordset->AbsolutePosition() : -1;
}

/// What every step off the current row begins with: it can be forbidden, and saves what is pending.
bool DataControl::leaves(Action action)
{
    Cancel cancel;
    bool save = hasChanges();
    Q_EMIT Validate(action, cancel, save);
    if (cancel) return false;
    if (save)
        UpdateRecord();
    else
        dropPending();
    return true;
}

void DataControl::moved()
{
    m_bound.show(m_recordset.get());
    Q_EMIT CurrentChanged();
    Q_EMIT Reposition();
}

void DataControl::MoveFirst()
{
    if (!leaves(Action::MoveFirst)) return;
    rows().MoveFirst();
    moved();
}

void DataControl::MoveLast()
{
    if (!leaves(Action::MoveLast)) return;
    rows().MoveLast();
    moved();
}

void DataControl::MoveNext()
{
    if (!leaves(Action::MoveNext)) return;
    rows().MoveNext();
    moved();
}

void DataControl::MovePrevious()
{
    if (!leaves(Action::MovePrevious)) return;
    rows().MovePrevious();
    moved();
}

void DataControl::MoveTo(qsizetype position)
{
    if (!leaves(Action::Bookmark)) return;
    rows().SetAbsolutePosition(position);
    moved();
}

void DataControl::FindFirst(const QString& criterion)
{
    if (!leaves(Action::Find)) return;
    rows().FindFirst(criterion);
    if (rows().NoMatch())
        m_bound.show(m_recordset.get());
    else
        moved();
}

bool DataControl::NoMatch() const
{
    return rows().NoMatch();
}

jet::Bookmark DataControl::Bookmark() const
{
    return rows().GetBookmark();
}

void DataControl::setBookmark(const jet::Bookmark& bookmark)
{
    if (!leaves(Action::Bookmark)) return;
    rows().SetBookmark(bookmark);
    moved();
}

void DataControl::AddNew()
{
    if (!leaves(Action::AddNew)) return;
    rows().AddNew();
    m_bound.show(m_recordset.get());
}

void DataControl::Edit()
{
    rows().Edit();
}

void DataControl::Set(QStringView field, const jet::Value& value)
{
    rows().Set(field, value);
}

void DataControl::Update()
{
    if (!hasChanges()) jet::raise(jet::ErrorNumber::UpdateWithoutEdit);
    leaves(Action::Update);
}

void DataControl::CancelUpdate()
{
    rows().CancelUpdate();
    m_bound.show(m_recordset.get());
}

void DataControl::Delete()
{
    Cancel cancel;
    bool save = false; // what is pending goes with the row
    Q_EMIT Validate(Action::Delete, cancel, save);
    if (cancel) return;
    const qsizetype position = rows().AbsolutePosition();
    rows().Delete();
    Q_EMIT RowRemoved(position);
}

void DataControl::UpdateRecord()
{
    if (!isOpen()) return;
    m_bound.collect(*m_recordset);
    if (!m_recordset->Editing()) return;
    const qsizetype count = m_recordset->RecordCount();
    try {
        m_recordset->Update();
    } catch (const jet::Error& error) {
        // The row is another one meanwhile. Bound fields keep what was typed, so a second try can begin from
        // the new one.
        if (error.number() == jet::ErrorNumber::ChangedByAnotherUser && !m_bound.isEmpty())
            m_recordset->CancelUpdate();
        throw;
    }
    if (m_recordset->RecordCount() > count)
        Q_EMIT RowAdded();
    else
        Q_EMIT RowChanged(AbsolutePosition());
    m_bound.show(m_recordset.get());
}

void DataControl::UpdateControls()
{
    dropPending();
    m_bound.show(m_recordset.get());
}

void DataControl::dropPending()
{
    if (isOpen() && m_recordset->Editing()) m_recordset->CancelUpdate();
}

bool DataControl::hasChanges() const
{
    return isOpen() && (m_recordset->Editing() || m_bound.hasChanges());
}
