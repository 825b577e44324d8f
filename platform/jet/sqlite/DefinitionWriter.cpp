#include "platform/jet/sqlite/DefinitionWriter.h"

#include "platform/jet/sqlite/ColumnType.h"
#include "platform/jet/sqlite/Names.h"

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

/// The key as an index, which can name the collation of a text: a constraint of the table could not be made
/// anew when the collation changes.
QByteArray primaryKey(const sql::CreateTable& create, const QByteArray& schema)
{
    for (const auto& column : create.columns) {
        if (!column.primaryKey || column.type == Type::Counter) continue;
        return ";CREATE UNIQUE INDEX " + schema + '.' + quoted(indexName(create.table, u"PrimaryKey"_s)) +
               " ON " + quoted(create.table) + '(' + quoted(column.name) +
               (isText(column.type) ? " COLLATE " + collationName() : QByteArray()) + ')';
    }
    return {};
}

QByteArray indexColumn(const sql::IndexColumn& column, const bind::Table& table)
{
    QByteArray text = quoted(column.name);
    if (column.folded) text = FoldFunction + ('(' + text) + ')';
    const auto field = static_cast<std::size_t>(table.find(column.name));
    if (isText(table.columns[field].type)) text += " COLLATE " + collationName();
    if (column.descending) text += " DESC";
    return text;
}

/// An index and what it is of lie in the same file; only the name of the first says in which.
struct Writer {
    QByteArray schema;
    bind::TablePtr table;

    QByteArray operator()(const sql::CreateTable& create) const
    {
        QByteArray text = "CREATE TABLE " + schema + '.' + quoted(create.table);
        for (std::size_t i = 0; i < create.columns.size(); ++i)
            text += (i > 0 ? ',' : '(') + writeColumn(create.columns[i]);
        return text + ')' + primaryKey(create, schema);
    }

    QByteArray operator()(const sql::AddColumn& add) const
    {
        return "ALTER TABLE " + schema + '.' + quoted(add.table) + " ADD COLUMN " + writeColumn(add.column);
    }

    /// What the file keeps of a table is its CREATE statement, in which the column stands as it was written.
    QByteArray operator()(const sql::AlterColumn& alter) const
    {
        const Field& before = table->columns[static_cast<std::size_t>(table->find(alter.column.name))];
        const auto literal = [](QByteArray text) { return '\'' + text.replace('\'', "\'\'") + '\''; };
        const QByteArray written =
            literal(writeColumn({before.name, before.type, before.size, false, false}));
        return "UPDATE " + schema + ".sqlite_master SET sql=replace(sql," + written + ',' +
               literal(writeColumn(alter.column)) +
               ") WHERE type='table' AND name=" + literal(alter.table.toUtf8()) + " AND instr(sql," +
               written + ")>0";
    }

    QByteArray operator()(const sql::CreateIndex& create) const
    {
        QByteArray text = create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
        text += schema + '.' + quoted(indexName(create.table, create.name)) + " ON " + quoted(create.table);
        for (std::size_t i = 0; i < create.columns.size(); ++i)
            text += (i > 0 ? ',' : '(') + indexColumn(create.columns[i], *table);
        return text + ')';
    }

    QByteArray operator()(const sql::DropIndex& drop) const
    {
        return "DROP INDEX " + schema + '.' + quoted(indexName(drop.table, drop.name));
    }

    QByteArray operator()(const sql::DropTable& drop) const
    {
        return "DROP TABLE " + schema + '.' + quoted(drop.table);
    }
};

} // namespace

QByteArray writeDefinition(const bind::BoundDefinition& definition, int file)
{
    return std::visit(Writer{schemaName(file), definition.table}, definition.definition);
}

} // namespace jet::sqlite
