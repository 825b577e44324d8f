#include "platform/jet/Recordset.h"

#include "platform/jet/Errors.h"
#include "platform/jet/rows/Rows.h"
#include "platform/jet/store/Scopes.h"

namespace jet {

Recordset::Recordset(std::unique_ptr<Rows> rows) : m_rows(std::move(rows)) {}

Recordset::~Recordset() = default;

bool Recordset::Bof() const
{
    m_rows->connection();
    return m_rows->isBof();
}

bool Recordset::Eof() const
{
    m_rows->connection();
    return m_rows->isEof();
}

void Recordset::MoveFirst()
{
    m_rows->told([this] { m_rows->moveFirst(); });
}

void Recordset::MoveLast()
{
    m_rows->told([this] { m_rows->moveLast(); });
}

void Recordset::MoveNext()
{
    m_rows->told([this] { m_rows->moveNext(); });
}

void Recordset::MovePrevious()
{
    m_rows->told([this] { m_rows->movePrevious(); });
}

void Recordset::FindFirst(const QString& criterion)
{
    m_rows->told([&] { m_rows->findFirst(criterion); });
}

bool Recordset::NoMatch() const
{
    return m_rows->noMatch;
}

qsizetype Recordset::FindFrom(qsizetype position, const QString& criterion) const
{
    return m_rows->told([&] { return m_rows->findFrom(position, criterion); });
}

qsizetype Recordset::RecordCount() const
{
    return m_rows->told([this] { return m_rows->count(); });
}

qsizetype Recordset::AbsolutePosition() const
{
    m_rows->connection();
    return m_rows->position();
}

Bookmark Recordset::bookmark(qint64 row) const
{
    Bookmark bookmark;
    bookmark.m_recordset = m_rows->number;
    bookmark.m_row = row;
    return bookmark;
}

Bookmark Recordset::GetBookmark() const
{
    m_rows->connection();
    return bookmark(m_rows->mark());
}

void Recordset::SetBookmark(const Bookmark& bookmark)
{
    m_rows->told([&] {
        if (bookmark.m_recordset != m_rows->number || !m_rows->moveToMark(bookmark.m_row))
            raise(ErrorNumber::InvalidBookmark);
    });
}

Bookmark Recordset::LastModified() const
{
    const auto row = m_rows->lastModified();
    return row ? bookmark(*row) : Bookmark();
}

std::optional<std::vector<Value>> Recordset::RowAt(qsizetype position) const
{
    return m_rows->told([&] { return m_rows->valuesAt(position, m_rows->allColumns()); });
}

std::vector<std::optional<std::vector<Value>>> Recordset::RowsAt(qsizetype first, qsizetype count,
                                                                 const std::vector<int>& columns) const
{
    return m_rows->told([&] {
        const store::ReadScope scope(m_rows->connection());
        std::vector<std::optional<std::vector<Value>>> rows;
        rows.reserve(static_cast<std::size_t>(count));
        for (qsizetype position = first; position < first + count; ++position)
            rows.push_back(m_rows->valuesAt(position, columns));
        return rows;
    });
}

Bookmark Recordset::BookmarkAt(qsizetype position) const
{
    m_rows->connection();
    return bookmark(m_rows->markAt(position));
}

void Recordset::SetAbsolutePosition(qsizetype position)
{
    m_rows->connection();
    m_rows->moveToPosition(position);
}

qsizetype Recordset::PositionOf(const Bookmark& bookmark) const
{
    m_rows->connection();
    return bookmark.m_recordset == m_rows->number ? m_rows->positionOf(bookmark.m_row) : -1;
}

Bookmark Recordset::SameRow(const Bookmark& former) const
{
    m_rows->connection();
    const bool isHere =
        former != Bookmark() && m_rows->isUpdatable() && m_rows->positionOf(former.m_row) >= 0;
    return isHere ? bookmark(former.m_row) : Bookmark();
}

const std::vector<Field>& Recordset::Fields() const
{
    return m_rows->fields();
}

std::optional<std::size_t> Recordset::PlaceOf(QStringView field) const
{
    return m_rows->find(field);
}

Value Recordset::operator[](QStringView field) const
{
    return m_rows->told([&] { return m_rows->value(m_rows->column(field)); });
}

Value Recordset::operator[](qsizetype column) const
{
    return m_rows->told([&] {
        if (column < 0 || column >= static_cast<qsizetype>(Fields().size())) raise(ErrorNumber::NoSuchField);
        return m_rows->value(static_cast<int>(column));
    });
}

bool Recordset::Updatable() const
{
    return m_rows->isUpdatable();
}

void Recordset::AddNew()
{
    m_rows->told([this] { m_rows->addNew(); });
}

void Recordset::Edit()
{
    m_rows->told([this] { m_rows->edit(); });
}

void Recordset::Set(QStringView field, const Value& value)
{
    m_rows->told([&] { m_rows->set(m_rows->column(field), value); });
}

void Recordset::Update()
{
    m_rows->told([this] { m_rows->update(); });
}

void Recordset::CancelUpdate()
{
    m_rows->told([this] { m_rows->cancelUpdate(); });
}

bool Recordset::Editing() const
{
    return m_rows->isEditing();
}

void Recordset::Delete()
{
    m_rows->told([this] { m_rows->remove(); });
}

} // namespace jet
