#pragma once

#include "platform/controls/BoundField.h"
#include "platform/controls/Cancel.h"
#include "platform/jet/Engine.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

/// The rows that a screen works on, without a visible part: grids and bound fields show them and follow the
/// current one.
///
/// The properties take effect at the next Refresh. Moves and edits go through here, so that everything that
/// shows the rows learns of them. A pending row (AddNew, Edit, or what the user typed into bound fields) is
/// saved by a move, a find or Close, dropped by Refresh and by the destructor. What the recordset refuses is
/// thrown to the caller.
class DataControl : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString DatabaseName READ DatabaseName WRITE setDatabaseName)
    Q_PROPERTY(QString Connect READ Connect WRITE setConnect)
    Q_PROPERTY(QString RecordSource READ RecordSource WRITE setRecordSource)

public:
    /// Why the current row is left; the values are the classic ones.
    enum class Action {
        MoveFirst = 1,
        MovePrevious = 2,
        MoveNext = 3,
        MoveLast = 4,
        AddNew = 5,
        Update = 6,
        Delete = 7,
        Find = 8,
        Bookmark = 9,
        Close = 10,
    };

    explicit DataControl(QObject* parent = nullptr);
    ~DataControl() override;

    QString DatabaseName() const { return m_databaseName; }
    void setDatabaseName(const QString& path) { m_databaseName = path; }
    QString Connect() const { return m_connect; } ///< ";pwd=..."
    void setConnect(const QString& connect) { m_connect = connect; }
    QString RecordSource() const { return m_recordSource; } ///< A table or a SELECT statement.
    void setRecordSource(const QString& source) { m_recordSource = source; }
    /// jet::Kind::Dynaset, as at start, or Snapshot.
    void setRecordsetType(jet::Kind kind) { m_kind = kind; }

    /// Opens the rows anew, on the first one. \throws jet::Error; the data control is then closed, which
    /// everything that shows it has been told, and can be refreshed again.
    void Refresh();
    /// Refresh, but rows that were copied and cannot have changed stay, and with them the current one.
    void RefreshIfChanged();
    /// Saves a pending row and closes. When saving is refused it stays open; a handler of Validate can forbid
    /// it, too.
    void Close();

    bool isOpen() const { return m_recordset != nullptr; }
    const jet::Recordset& Recordset() const; ///< To read from. \throws jet::Error ObjectClosed.
    jet::Database& Database() const;         ///< The file it is open on. \throws jet::Error ObjectClosed.
    qsizetype RecordCount() const;           ///< 0 when closed.
    qsizetype AbsolutePosition() const;      ///< From 0; -1 without a current row.

    void MoveFirst(); ///< \throws jet::Error NoCurrentRecord without rows; so do all moves.
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    void MoveTo(qsizetype position); ///< By place, from 0.
    void FindFirst(
        const QString& criterion); ///< Without a match the current row stays and Reposition is not fired.
    bool NoMatch() const;
    jet::Bookmark Bookmark() const;
    void setBookmark(const jet::Bookmark& bookmark);

    void AddNew();
    void Edit();
    void Set(QStringView field, const jet::Value& value);
    void Update();
    void CancelUpdate();
    /// Deletes the current row; another one is current only after a move, MoveNext going to the one behind
    /// it.
    void Delete();

    void UpdateRecord();   ///< Writes the pending row, if there is one; no Validate.
    void UpdateControls(); ///< Drops the pending row; bound fields show what the file has. No signals.

Q_SIGNALS:
    /// A row became current, or none did where one was looked for: once after each move, find with a match
    /// and Refresh, one that found no rows included. Not after AddNew and Update.
    void Reposition();
    /// The current row is about to be left, changed or not. `save` says whether something is pending; false
    /// drops it.
    void Validate(DataControl::Action action, Cancel& cancel, bool& save);

    // For what shows the rows; each comes before the Reposition of the same step.
    void RowsReplaced();
    void RowAdded(); ///< Behind the last one.
    void RowChanged(qsizetype position);
    void RowRemoved(qsizetype position);
    void CurrentChanged();

private:
    friend class BoundField;
    bool hasChanges() const;

    void open();
    void shut();
    void announceRows();
    void moved();
    bool leaves(Action action);
    void dropPending();
    jet::Recordset& rows() const;

    QString m_databaseName;
    QString m_connect;
    QString m_recordSource;
    jet::Kind m_kind = jet::Kind::Dynaset;
    std::unique_ptr<jet::Database> m_database;
    std::unique_ptr<jet::Recordset> m_recordset;
    QString m_shownSource;  // what the rows were read by
    jet::ChangeMark m_mark; // of the file before they were
    BoundFields m_bound;
};
