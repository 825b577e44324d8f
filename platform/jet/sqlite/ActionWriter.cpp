#include "platform/jet/sqlite/ActionWriter.h"

#include "platform/jet/sqlite/ExpressionWriter.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/sqlite/SelectWriter.h"

namespace jet::sqlite {

namespace {

const Field& columnAt(const bind::TablePtr& table, int column)
{
    return table->columns[static_cast<std::size_t>(column)];
}

void writeWhere(QByteArray& out, ExpressionWriter& writer, const sql::ExpressionPtr& where)
{
    if (!where) return;
    out += " WHERE ";
    writer.condition(*where);
}

} // namespace

QByteArray writeInsert(const bind::BoundInsert& insert)
{
    QByteArray out = "INSERT INTO " + placed(*insert.table) + '(';
    std::vector<Field> fields;
    for (std::size_t i = 0; i < insert.columns.size(); ++i) {
        const Field& column = columnAt(insert.table, insert.columns[i]);
        out += (i > 0 ? "," : "") + quoted(column.name);
        fields.push_back(column);
        if (insert.isNew) fields.back().name.clear(); // nothing is refused in its name
    }
    out += ") ";
    if (insert.select) return out + writeRows(*insert.select, fields);
    out += "VALUES(";
    const std::vector<bind::TablePtr> none;
    ExpressionWriter writer(out, none);
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
        if (i > 0) out += ',';
        writer.assigned(*insert.values[i], fields[i].type, fields[i].name);
    }
    return out + ')';
}

QByteArray writeUpdate(const bind::BoundUpdate& update)
{
    QByteArray out = "UPDATE " + placed(*update.table) + " AS t0 SET ";
    const std::vector<bind::TablePtr> tables{update.table};
    ExpressionWriter writer(out, tables);
    for (std::size_t i = 0; i < update.columns.size(); ++i) {
        const Field& column = columnAt(update.table, update.columns[i]);
        out += (i > 0 ? "," : "") + quoted(column.name) + '=';
        writer.assigned(*update.values[i], column.type, column.name);
    }
    writeWhere(out, writer, update.where);
    return out;
}

QByteArray writeDelete(const bind::BoundDelete& statement)
{
    QByteArray out = "DELETE FROM " + placed(*statement.table) + " AS t0";
    const std::vector<bind::TablePtr> tables{statement.table};
    ExpressionWriter writer(out, tables);
    writeWhere(out, writer, statement.where);
    return out;
}

} // namespace jet::sqlite
