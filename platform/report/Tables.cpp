#include "platform/report/Tables.h"

#include "platform/jet/Engine.h"
#include "platform/jet/Errors.h"
#include "platform/jet/TextLiteral.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

namespace {

bool hasTable(const jet::Database& file, const QString& table)
{
    const auto tables = file.TableDefs();
    return std::any_of(tables.begin(), tables.end(), [&table](const jet::TableDef& found) {
        return found.name.compare(table, Qt::CaseInsensitive) == 0;
    });
}

/// A value as a statement has it.
QString literal(const jet::Value& value)
{
    if (jet::isNumber(value.type())) return QString::number(value.toDouble(), 'g', 15);
    return jet::textLiteral(value.toText());
}

} // namespace

Tables::Tables(const Form& form, const Job& job)
    : m_form(form.file), m_table(form.data.table), m_rows(open(job, 0))
{
    for (const jet::Field& field : first(*m_rows, m_table)->Fields())
        m_columns.insert(field.name.toLower());
    int index = 0;
    for (const Lookup& lookup : form.lookups)
        readLookup(lookup, *open(job, ++index));
}

void Tables::require(const QString& column) const
{
    if (!has(column)) refuseColumn(m_table, column);
}

jet::Value Tables::lookUp(const QString& table, const QString& column) const
{
    const auto& row = *m_lookups.find(table.toLower());
    const auto found = row.find(column.toLower());
    if (found == row.end()) refuseColumn(table, column);
    return *found;
}

std::unique_ptr<jet::Database> Tables::open(const Job& job, int index) const
{
    QString file = job.dataFiles.value(index);
    if (file.isEmpty()) file = job.dataFiles.value(0);
    if (file.isEmpty())
        Place{u"Das Berichtsformular '"_s + m_form + u'\''}.refuse(u"Es ist keine Datendatei angegeben."_s);
    return jet::engine().OpenDatabase(file);
}

void Tables::readLookup(const Lookup& lookup, jet::Database& file)
{
    QString where;
    if (lookup.equals) {
        const auto* const reference = std::get_if<Reference>(&*lookup.equals);
        const jet::Value value =
            reference ? lookUp(reference->table, reference->name) : std::get<jet::Value>(*lookup.equals);
        where = u" WHERE ["_s + lookup.column + u"] = "_s + literal(value);
    }
    const auto all = first(file, lookup.table);
    if (!lookup.column.isEmpty() && !all->PlaceOf(lookup.column)) refuseColumn(lookup.table, lookup.column);

    const auto rows = first(file, lookup.table, where);
    auto& row = m_lookups[lookup.table.toLower()];
    for (const jet::Field& field : all->Fields())
        row.insert(field.name.toLower(), rows->Eof() ? jet::Value() : (*rows)[field.name]);
}

std::unique_ptr<jet::Recordset> Tables::first(jet::Database& file, const QString& table,
                                              const QString& where) const
{
    if (!hasTable(file, table))
        throw jet::Error(jet::ErrorNumber::UnknownTable,
                         u"Das Berichtsformular '"_s + m_form + u"' braucht die Tabelle '"_s + table +
                             u"', die es in der Datei '"_s + file.Name() + u"' nicht gibt."_s);
    return file.OpenRecordset(u"SELECT TOP 1 * FROM ["_s + table + u']' + where, jet::Kind::Snapshot);
}

void Tables::refuseColumn(const QString& table, const QString& column) const
{
    throw jet::Error(jet::ErrorNumber::NoSuchField,
                     u"Das Berichtsformular '"_s + m_form + u"' braucht die Spalte '"_s + column +
                         u"', die die Tabelle '"_s + table + u"' nicht hat."_s);
}

} // namespace report
