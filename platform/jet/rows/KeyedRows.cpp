#include "platform/jet/rows/KeyedRows.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/store/Scopes.h"

using namespace Qt::StringLiterals;

namespace jet {

std::optional<std::vector<Value>> KeyedRows::read(store::Key key, const std::vector<int>& columns) const
{
    const auto row = m_plan->query->row(m_shape.parameters, key);
    if (!row->next()) return {};
    std::vector<Value> values;
    values.reserve(columns.size());
    for (const int column : columns)
        values.push_back(cell(*row, column));
    return values;
}

const std::vector<Value>& KeyedRows::row() const
{
    const store::Key key = currentKey();
    if (!m_row) m_row = read(key, allColumns());
    if (!m_row) raise(ErrorNumber::RecordDeleted);
    return *m_row;
}

Value KeyedRows::value(int column) const
{
    const auto index = static_cast<std::size_t>(column);
    return m_mode == Mode::None ? row()[index] : m_pending[index];
}

void KeyedRows::leaveRow()
{
    m_mode = Mode::None;
    m_row.reset();
}

void KeyedRows::requireWritable() const
{
    if (!isUpdatable()) raise(ErrorNumber::ReadOnly);
}

void KeyedRows::requireEditing() const
{
    if (m_mode == Mode::None) raise(ErrorNumber::UpdateWithoutEdit);
}

void KeyedRows::addNew()
{
    requireWritable();
    m_pending.assign(fields().size(), {});
    for (std::size_t i = 0; i < fields().size(); ++i)
        if (fields()[i].type == Type::Boolean) m_pending[i] = Value(false);
    m_before = m_pending;
    m_mode = Mode::Add;
}

void KeyedRows::edit()
{
    requireWritable();
    m_row.reset(); // as it is now, not as it was when it was last looked at
    m_pending = m_before = row();
    m_mode = Mode::Edit;
}

void KeyedRows::set(int column, const Value& value)
{
    requireEditing();
    const auto index = static_cast<std::size_t>(column);
    if (m_plan->select->columns[index].tableColumn < 0 || fields()[index].type == Type::Counter)
        raise(ErrorNumber::FieldNotUpdatable);
    try {
        m_pending[index] = convert(value, fields()[index].type);
    } catch (const Error& error) {
        throw named(error, u"Feld"_s, fields()[index].name);
    }
}

std::vector<store::Cell> KeyedRows::changes() const
{
    std::vector<store::Cell> changes;
    for (std::size_t i = 0; i < m_pending.size(); ++i) {
        const int column = m_plan->select->columns[i].tableColumn;
        if (column >= 0 && !(m_pending[i] == m_before[i])) changes.push_back({column, m_pending[i]});
    }
    return changes;
}

void KeyedRows::update()
{
    requireEditing();
    if (m_mode == Mode::Add)
        insert();
    else
        change();
    leaveRow();
}

void KeyedRows::insert()
{
    m_session->use().announceChange();
    const store::Key key = connection().insert(table(), changes());
    m_lastModified = key.bits();
    added(key);
}

void KeyedRows::change()
{
    const store::Key key = currentKey();
    const auto cells = changes();
    if (cells.empty()) {
        m_lastModified = key.bits();
        return;
    }
    m_session->use().announceChange();
    std::optional<store::WriteScope> scope; // reading and writing again; a transaction holds the file already
    if (!connection().inTransaction()) scope.emplace(connection());
    const auto now = read(key, allColumns());
    if (!now) raise(ErrorNumber::RecordDeleted);
    for (std::size_t i = 0; i < now->size(); ++i)
        if (m_plan->select->columns[i].tableColumn >= 0 && !((*now)[i] == m_before[i]))
            raise(ErrorNumber::ChangedByAnotherUser);
    connection().change(table(), key, cells);
    if (scope) scope->commit();
    m_lastModified = key.bits();
}

void KeyedRows::cancelUpdate()
{
    requireEditing();
    leaveRow();
}

void KeyedRows::remove()
{
    requireWritable();
    m_session->use().announceChange();
    if (!connection().remove(table(), currentKey())) raise(ErrorNumber::RecordDeleted);
    leaveRow();
    removed();
}

} // namespace jet
