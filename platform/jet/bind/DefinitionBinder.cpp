#include "platform/jet/bind/DefinitionBinder.h"

#include "platform/jet/Errors.h"

namespace jet::bind {

namespace {

using sql::ColumnDefinition;

constexpr int LongestName = 64;

void requireName(const QString& name, const Present& present)
{
    const bool isReserved = name.startsWith(u"MSys", Qt::CaseInsensitive) || present.isReserved(name);
    if (name.size() > LongestName || name.trimmed().isEmpty() || isReserved)
        raise(ErrorNumber::InvalidName, {name});
}

bool isKey(const ColumnDefinition& column)
{
    return column.primaryKey || column.type == Type::Counter;
}

/// Checks a definition that names things in any case, and gives them the names that the file has.
class DefinitionBinder {
public:
    explicit DefinitionBinder(const Present& present) : m_present(present) {}

    TablePtr operator()(sql::CreateTable& create) const
    {
        if (m_present.table(create.table) || m_present.isLink(create.table))
            raise(ErrorNumber::TableExists, {create.table});
        requireNames(create, m_present);
        return nullptr;
    }

    TablePtr operator()(sql::AddColumn& add) const
    {
        auto table = tableOf(add.table);
        requireName(add.column.name, m_present);
        if (table->find(add.column.name) >= 0)
            raise(ErrorNumber::ColumnExists, {add.column.name, table->name});
        // Rows that are there already have neither a number nor a value.
        if (isKey(add.column) || add.column.required) raise(ErrorNumber::AlterTableSyntax);
        return table;
    }

    /// Rows keep what they hold: a text may only get more room.
    TablePtr operator()(sql::AlterColumn& alter) const
    {
        auto table = tableOf(alter.table);
        const auto& before = table->columns[columnOf(*table, alter.column.name)];
        const bool longer = alter.column.type == Type::Memo ||
                            (alter.column.type == Type::Text && alter.column.size >= before.size);
        if (before.type != Type::Text || !longer || alter.column.required || alter.column.primaryKey)
            raise(ErrorNumber::AlterTableSyntax);
        return table;
    }

    TablePtr operator()(sql::CreateIndex& create) const
    {
        auto table = tableOf(create.table);
        requireName(create.name, m_present);
        if (m_present.hasIndex(table->name, create.name))
            raise(ErrorNumber::IndexExists, {table->name, create.name});
        for (auto& column : create.columns)
            columnOf(*table, column.name);
        return table;
    }

    TablePtr operator()(sql::DropIndex& drop) const
    {
        auto table = tableOf(drop.table);
        if (!m_present.hasIndex(table->name, drop.name)) raise(ErrorNumber::ObjectNotFound, {drop.name});
        return table;
    }

    TablePtr operator()(sql::DropTable& drop) const { return tableOf(drop.table); }

private:
    TablePtr tableOf(QString& name) const
    {
        auto table = m_present.table(name);
        if (!table) raise(ErrorNumber::NoSuchTable);
        name = table->name;
        return table;
    }

    /// Its place, by a name that becomes the one which the table has.
    static std::size_t columnOf(const Table& table, QString& name)
    {
        const int found = table.find(name);
        if (found < 0) raise(ErrorNumber::ObjectNotFound, {name});
        const auto column = static_cast<std::size_t>(found);
        name = table.columns[column].name;
        return column;
    }

    const Present& m_present;
};

} // namespace

BoundDefinition bindDefinition(sql::Definition definition, const Present& present)
{
    auto table = std::visit(DefinitionBinder(present), definition);
    return {std::move(definition), std::move(table)};
}

void requireNames(const sql::CreateTable& create, const Present& present)
{
    requireName(create.table, present);
    for (auto column = create.columns.begin(); column != create.columns.end(); ++column) {
        requireName(column->name, present);
        for (auto before = create.columns.begin(); before != column; ++before) {
            if (sameName(before->name, column->name))
                raise(ErrorNumber::ColumnExists, {column->name, create.table});
            if (isKey(*before) && isKey(*column)) raise(ErrorNumber::ColumnDefinitionSyntax);
        }
    }
}

} // namespace jet::bind
