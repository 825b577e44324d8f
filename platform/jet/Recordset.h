#pragma once

#include "platform/jet/TableDef.h"
#include "platform/jet/Value.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace jet {

/// How a recordset sees its rows. A Dynaset whose rows cannot be changed is a Snapshot.
enum class Kind { Dynaset, Snapshot };

/// Marks a row of one recordset; useless for any other.
class Bookmark {
public:
    Bookmark() = default; ///< Marks no row.
    bool operator==(const Bookmark&) const = default;

private:
    friend class Recordset;
    quint64 m_recordset = 0;
    qint64 m_row = 0;
};

/// The rows of one statement, one of them current:   Bof | row 1 | ... | row n | Eof
///
/// A dynaset keeps the keys of its rows in the order they were found and reads a row when it becomes current;
/// rows it added stand at its end, rows that others add do not appear, a row that others delete keeps its
/// place. A snapshot keeps values and refuses changes; so does a dynaset over grouped, joined or linked rows.
/// None leaves a statement open between two calls: a recordset that somebody forgets never locks out another
/// program.
///
/// Opened with rows, the first one is current. Every call throws ObjectClosed once the database is closed.
class Recordset {
public:
    ~Recordset();
    Q_DISABLE_COPY_MOVE(Recordset)

    bool Bof() const; ///< Before the first row. Bof and Eof together: there are no rows.
    bool Eof() const; ///< After the last row.
    void MoveFirst(); ///< \throws Error NoCurrentRecord on an empty recordset; so do all moves.
    void MoveLast();
    void MoveNext();     ///< \throws Error NoCurrentRecord when already at Eof.
    void MovePrevious(); ///< \throws Error NoCurrentRecord when already at Bof.
    /// Makes the first row that meets the criterion (the text after a WHERE) current. Its names are this
    /// recordset's columns, aliases included. Without a match NoMatch() is true and the current row stays
    /// where it was. \throws Error CriterionSyntax, UnknownNameInCriterion, TypeMismatch.
    void FindFirst(const QString& criterion);
    bool NoMatch() const;
    /// The place of the first row that meets the criterion, counted from one place on and behind the last row
    /// again from the first; -1: none does. No other row becomes current, a pending one stays. \throws Error
    /// as FindFirst does.
    qsizetype FindFrom(qsizetype position, const QString& criterion) const;

    qsizetype RecordCount() const;              ///< All rows, known at once.
    qsizetype AbsolutePosition() const;         ///< From 0; -1 without a current row.
    Bookmark GetBookmark() const;               ///< \throws Error NoCurrentRecord.
    void SetBookmark(const Bookmark& bookmark); ///< \throws Error InvalidBookmark.
    Bookmark LastModified() const;              ///< The row of the last Update(); marks no row before it.

    // By place, from 0 to RecordCount() - 1, for a grid that shows a stretch of the rows. All throw
    // NoCurrentRecord for a place that is none.
    /// The fields of a row as the file has them now; the current row stays current, a pending one is not
    /// looked at. No value when another program has deleted it.
    std::optional<std::vector<Value>> RowAt(qsizetype position) const;
    /// The same for a stretch of rows, which takes much less time than each by itself, and only these
    /// columns, by their places in Fields(). Other programs cannot write meanwhile: a few hundred rows are
    /// enough.
    std::vector<std::optional<std::vector<Value>>> RowsAt(qsizetype first, qsizetype count,
                                                          const std::vector<int>& columns) const;
    Bookmark BookmarkAt(qsizetype position) const;
    void SetAbsolutePosition(qsizetype position); ///< Makes that row current.
    qsizetype
    PositionOf(const Bookmark& bookmark) const; ///< -1: not a row of this recordset, or not any more.
    /// The mark, here, of a row that a former dynaset of the same statement marked; marks no row if it is not
    /// here.
    Bookmark SameRow(const Bookmark& former) const;

    const std::vector<Field>& Fields() const; ///< The columns, in written order.
    /// The place of a field in Fields(), by name in any case; none without it.
    std::optional<std::size_t> PlaceOf(QStringView field) const;
    /// Field of the current row by name, in any case; between AddNew or Edit and Update that of the pending
    /// row. \throws Error NoSuchField, NoCurrentRecord, RecordDeleted.
    Value operator[](QStringView field) const;
    Value operator[](qsizetype column) const; ///< By position in Fields().

    bool Updatable() const;
    void AddNew(); ///< Begins a row after the last one; nothing is written before Update(). \throws Error
                   ///< ReadOnly.
    void Edit();   ///< Begins a change of the current row. \throws Error ReadOnly, NoCurrentRecord.
    /// Sets a field of the pending row, converted to the column's type by German rules.
    /// \throws Error UpdateWithoutEdit, NoSuchField, FieldNotUpdatable, ConversionFailed.
    void Set(QStringView field, const Value& value);
    /// Writes the pending row; one that changes nothing is not written. After AddNew the row that was current
    /// before is current again. \throws Error UpdateWithoutEdit, FieldTooLong, ValueRequired, DuplicateKey,
    /// Locked, ChangedByAnotherUser, RecordDeleted, DiskFull. The edit stays pending, so it can be tried
    /// again.
    void Update();
    void CancelUpdate();  ///< Drops the pending row. \throws Error UpdateWithoutEdit.
    bool Editing() const; ///< A row is pending. Any move or find drops it.
    /// Deletes the current row, which then cannot be read until a move; MoveNext goes to the row after it.
    void Delete();

    class Rows; ///< How a kind of recordset keeps its rows; known to this room only.

private:
    friend class Database;
    explicit Recordset(std::unique_ptr<Rows> rows);
    Bookmark bookmark(qint64 row) const;
    std::unique_ptr<Rows> m_rows;
};

} // namespace jet
