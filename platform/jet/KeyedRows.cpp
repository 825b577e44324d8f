#include "platform/jet/KeyedRows.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/sqlite/Names.h"

using namespace Qt::StringLiterals;

namespace jet {

using sqlite::Statement;

std::optional<std::vector<Value>> KeyedRows::read(qint64 key, const std::vector<int>& columns) const
{
    Statement::Run run(connection().prepared(m_plan->row));
    bindParameters(run, m_shape.parameters);
    run.bind(m_plan->parameters, Value(key));
    if (!run.step()) return {};
    std::vector<Value> values;
    values.reserve(columns.size());
    for (const int column : columns)
        values.push_back(cell(run, column));
    return values;
}

const std::vector<Value>& KeyedRows::row() const
{
    const qint64 key = currentKey();
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

std::vector<KeyedRows::Change> KeyedRows::changes() const
{
    std::vector<Change> changes;
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
    const auto cells = changes();
    QByteArray names;
    QByteArray places;
    for (const Change& cell : cells) {
        names +=
            (names.isEmpty() ? "" : ",") + sqlite::quoted(table().columns[static_cast<std::size_t>(cell.column)].name);
        places += places.isEmpty() ? "?" : ",?";
    }
    const QByteArray target = "INSERT INTO " + sqlite::quoted(table().name);
    {
        Statement::Run run(connection().prepared(cells.empty() ? target + " DEFAULT VALUES"
                                                               : target + '(' + names + ") VALUES(" + places + ')'));
        for (std::size_t i = 0; i < cells.size(); ++i)
            run.bind(static_cast<int>(i), cells[i].value);
        run.step();
    }
    m_lastModified = connection().lastRow();
    added(*m_lastModified);
}

void KeyedRows::change()
{
    const qint64 key = currentKey();
    const auto cells = changes();
    if (cells.empty()) {
        m_lastModified = key;
        return;
    }
    std::optional<sqlite::WriteScope> scope; // reading and writing again; a transaction holds the file already
    if (!connection().inTransaction()) scope.emplace(connection());
    const auto now = read(key, allColumns());
    if (!now) raise(ErrorNumber::RecordDeleted);
    for (std::size_t i = 0; i < now->size(); ++i)
        if (m_plan->select->columns[i].tableColumn >= 0 && !((*now)[i] == m_before[i]))
            raise(ErrorNumber::ChangedByAnotherUser);
    QByteArray text = "UPDATE " + sqlite::quoted(table().name) + " SET ";
    for (std::size_t i = 0; i < cells.size(); ++i)
        text +=
            (i > 0 ? "," : "") + sqlite::quoted(table().columns[static_cast<std::size_t>(cells[i].column)].name) + "=?";
    {
        Statement::Run run(connection().prepared(text + " WHERE _rowid_=?"));
        for (std::size_t i = 0; i < cells.size(); ++i)
            run.bind(static_cast<int>(i), cells[i].value);
        run.bind(static_cast<int>(cells.size()), Value(key));
        run.step();
    }
    if (scope) scope->commit();
    m_lastModified = key;
}

void KeyedRows::cancelUpdate()
{
    requireEditing();
    leaveRow();
}

void KeyedRows::remove()
{
    requireWritable();
    const qint64 key = currentKey();
    {
        Statement::Run run(connection().prepared("DELETE FROM " + sqlite::quoted(table().name) + " WHERE _rowid_=?"));
        run.bind(0, Value(key));
        run.step();
    }
    if (connection().changes() == 0) raise(ErrorNumber::RecordDeleted);
    leaveRow();
    removed();
}

} // namespace jet
