#include "platform/jet/rows/Rows.h"

#include "platform/jet/Errors.h"
#include "platform/jet/bind/Table.h"
#include "platform/jet/rows/KeysetRows.h"
#include "platform/jet/rows/SnapshotRows.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace jet {

namespace {

quint64 nextNumber()
{
    static quint64 number = 0; // bookmarks only compare it
    return ++number;
}

} // namespace

Recordset::Rows::Rows(std::shared_ptr<Database::Session> session, std::shared_ptr<Plan> plan,
                      sql::Shape shape)
    : number(nextNumber()), m_session(std::move(session)), m_plan(std::move(plan)), m_shape(std::move(shape))
{}

std::optional<std::size_t> Recordset::Rows::find(QStringView name) const
{
    for (std::size_t i = 0; i < fields().size(); ++i)
        if (bind::sameName(fields()[i].name, name)) return i;
    return {};
}

int Recordset::Rows::column(QStringView name) const
{
    const auto found = find(name);
    if (!found) raise(ErrorNumber::NoSuchField);
    return static_cast<int>(*found);
}

Value Recordset::Rows::cell(const store::Cursor& row, int column) const
{
    const auto isInfinite = [](const Value& read) {
        return read.type() == Type::Double && !std::isfinite(read.toDouble());
    };
    const auto isStored = [&](int at) {
        return m_plan->select->columns[static_cast<std::size_t>(at)].tableColumn >= 0;
    };
    const auto typeAt = [&](int at) { return fields()[static_cast<std::size_t>(at)].type; };
    Value value = row.value(column, typeAt(column));
    if (!isInfinite(value) || isStored(column)) return value;
    // Of a row that has such a number itself, from before they were refused, or it could be neither seen nor
    // mended.
    const std::vector<int> all = allColumns();
    if (std::ranges::none_of(all,
                             [&](int at) { return isStored(at) && isInfinite(row.value(at, typeAt(at))); }))
        raise(ErrorNumber::Overflow);
    return value;
}

std::vector<int> Recordset::Rows::allColumns() const
{
    std::vector<int> columns(fields().size());
    std::iota(columns.begin(), columns.end(), 0);
    return columns;
}

void Recordset::Rows::addNew()
{
    raise(ErrorNumber::ReadOnly);
}

void Recordset::Rows::edit()
{
    raise(ErrorNumber::ReadOnly);
}

void Recordset::Rows::set(int, const Value&)
{
    raise(ErrorNumber::UpdateWithoutEdit);
}

void Recordset::Rows::update()
{
    raise(ErrorNumber::UpdateWithoutEdit);
}

void Recordset::Rows::cancelUpdate()
{
    raise(ErrorNumber::UpdateWithoutEdit);
}

void Recordset::Rows::remove()
{
    raise(ErrorNumber::ReadOnly);
}

std::unique_ptr<Recordset::Rows> openRows(std::shared_ptr<Database::Session> session,
                                          std::shared_ptr<Plan> plan, sql::Shape shape, Kind kind)
{
    if (plan->isKeyed() && kind == Kind::Dynaset)
        return std::make_unique<KeysetRows>(std::move(session), std::move(plan), std::move(shape));
    return std::make_unique<SnapshotRows>(std::move(session), std::move(plan), std::move(shape));
}

} // namespace jet
