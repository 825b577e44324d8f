#include "platform/jet/sqlite/DefinitionWriter.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sqlite/ColumnType.h"
#include "platform/jet/sqlite/Names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace jet::sqlite {

namespace {

void requireName(const QString& name)
{
    const bool isKey = bind::sameName(name, u"_rowid_"); // by which rows are found again
    const bool reserved =
        isKey || name.startsWith(u"MSys", Qt::CaseInsensitive) || name.startsWith(u"sqlite_", Qt::CaseInsensitive);
    if (name.size() > 64 || name.trimmed().isEmpty() || reserved) raise(ErrorNumber::InvalidName, {name});
}

bind::TablePtr requireTable(const Catalogue& catalogue, const QString& name)
{
    auto table = catalogue.table(name);
    if (!table) raise(ErrorNumber::NoSuchTable);
    return table;
}

/// The key as an index, which can name the collation of a text: a constraint of the table could not be made anew when
/// the collation changes.
QByteArray primaryKey(const sql::CreateTable& create, const QByteArray& schema)
{
    for (const auto& column : create.columns) {
        if (!column.primaryKey || column.type == Type::Counter) continue;
        return ";CREATE UNIQUE INDEX " + schema + '.' + quoted(indexName(create.table, u"PrimaryKey"_s)) + " ON " +
               quoted(create.table) + '(' + quoted(column.name) +
               (isText(column.type) ? " COLLATE " + collationName() : QByteArray()) + ')';
    }
    return {};
}

QByteArray indexColumn(const sql::IndexColumn& column, const bind::Table& table)
{
    const int found = table.find(column.name);
    if (found < 0) raise(ErrorNumber::ObjectNotFound, {column.name});
    const Field& field = table.columns[static_cast<std::size_t>(found)];
    QByteArray text = quoted(field.name);
    if (column.folded) text = FoldFunction + ('(' + text) + ')';
    if (isText(field.type)) text += " COLLATE " + collationName();
    if (column.descending) text += " DESC";
    return text;
}

} // namespace

QByteArray writeDefinition(const sql::CreateTable& create, const Catalogue& catalogue)
{
    if (catalogue.table(create.table) || catalogue.link(create.table)) raise(ErrorNumber::TableExists, {create.table});
    return writeCreateTable(create, "main");
}

QByteArray writeCreateTable(const sql::CreateTable& create, const QByteArray& schema)
{
    requireName(create.table);
    QByteArray text = "CREATE TABLE " + schema + '.' + quoted(create.table) + '(';
    for (std::size_t i = 0; i < create.columns.size(); ++i) {
        const auto& column = create.columns[i];
        requireName(column.name);
        for (std::size_t j = 0; j < i; ++j) {
            if (bind::sameName(create.columns[j].name, column.name))
                raise(ErrorNumber::ColumnExists, {column.name, create.table});
            const bool keyed = create.columns[j].primaryKey || create.columns[j].type == Type::Counter;
            if (keyed && (column.primaryKey || column.type == Type::Counter))
                raise(ErrorNumber::ColumnDefinitionSyntax);
        }
        text += (i > 0 ? "," : "") + writeColumn(column);
    }
    return text + ')' + primaryKey(create, schema);
}

QByteArray writeDefinition(const sql::AddColumn& add, const Catalogue& catalogue)
{
    const auto table = requireTable(catalogue, add.table);
    requireName(add.column.name);
    if (table->find(add.column.name) >= 0) raise(ErrorNumber::ColumnExists, {add.column.name, table->name});
    // Rows that are there already have neither a number nor a value.
    if (add.column.type == Type::Counter || add.column.required || add.column.primaryKey)
        raise(ErrorNumber::AlterTableSyntax);
    return "ALTER TABLE " + quoted(table->name) + " ADD COLUMN " + writeColumn(add.column);
}

QByteArray writeDefinition(const sql::CreateIndex& create, const Catalogue& catalogue)
{
    const auto table = requireTable(catalogue, create.table);
    requireName(create.name);
    if (catalogue.hasIndex(table->name, create.name)) raise(ErrorNumber::IndexExists, {table->name, create.name});
    QByteArray text = create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    text += quoted(indexName(table->name, create.name)) + " ON " + quoted(table->name) + '(';
    for (std::size_t i = 0; i < create.columns.size(); ++i)
        text += (i > 0 ? "," : "") + indexColumn(create.columns[i], *table);
    return text + ')';
}

QByteArray writeDefinition(const sql::DropIndex& drop, const Catalogue& catalogue)
{
    const auto table = requireTable(catalogue, drop.table);
    if (!catalogue.hasIndex(table->name, drop.name)) raise(ErrorNumber::ObjectNotFound, {drop.name});
    return "DROP INDEX " + quoted(indexName(table->name, drop.name));
}

QByteArray writeDropTable(const sql::DropTable& drop, const Catalogue& catalogue)
{
    return "DROP TABLE " + quoted(requireTable(catalogue, drop.table)->name);
}

} // namespace jet::sqlite
