#include "platform/report/Rows.h"

#include "platform/jet/Errors.h"
#include "platform/report/Evaluation.h"
#include "platform/report/FormNames.h"
#include "platform/system/Clock.h"

#include <algorithm>
#include <iterator>
#include <numeric>

using namespace Qt::StringLiterals;

namespace report {

namespace {

template <class Named>
auto named(const std::vector<Named>& all, const QString& name, QString Named::*member)
{
    return std::find_if(all.begin(), all.end(), [&](const Named& one) {
        return (one.*member).compare(name, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

Rows::Rows(Form& form, const Job& job) : m_form(form), m_tables(form, job)
{
    m_selection = FormNames(form).condition(job.selection, {u"Die Auswahl der Zeilen"_s}, TotalsAllowed::No);
    bindFormulas();
    bindSummary();
    checkComputed();
    bind(bandReferences(form));
    std::vector<Reference*> references;
    collect(form.data.show, references);
    collect(m_selection, references);
    bind(references);

    bindGroups();
    for (const QString& field : job.sortFields)
        sortByField(field);
    for (const Key& key : form.data.sort) {
        if (isHiddenKey(key.column)) continue;
        const QString expression = expressionOf(key.column);
        if (expression.isEmpty())
            key.place.refuse(u"Die Zeilen haben keine Spalte '"_s + key.column + u"'."_s);
        sortBy(expression, key.descending);
    }
    m_rows = m_tables.rows().OpenRecordset(statement());
    sumUp();
}

bool Rows::next()
{
    while (m_position < m_rows->RecordCount()) {
        if (m_position == m_read.from + std::ssize(m_read.rows)) readOn();
        auto& row = m_read.rows[static_cast<std::size_t>(m_position++ - m_read.from)];
        if (!row) continue;
        m_row = std::move(*row);
        const Standing standing{.row = &m_row};
        if (holds(m_form.data.show, standing) && holds(m_selection, standing)) return true;
    }
    return false;
}

void Rows::readOn()
{
    constexpr qsizetype Most = 200; // other programs cannot write meanwhile
    std::vector<int> columns(static_cast<std::size_t>(m_rows->Fields().size()));
    std::iota(columns.begin(), columns.end(), 0);
    m_read = {m_position,
              m_rows->RowsAt(m_position, std::min(Most, m_rows->RecordCount() - m_position), columns)};
}

qsizetype Rows::count() const
{
    return m_rows->RecordCount();
}

/// From here on a formula is a value, or a reference to a column of the rows.
void Rows::bindFormulas()
{
    for (FormulaDefault& formula : m_form.formulas) {
        const auto* const reference = std::get_if<Reference>(&formula.value);
        if (!reference) continue;
        if (m_tables.isLookup(reference->table))
            formula.value = m_tables.lookUp(reference->table, reference->name);
        else if (reference->table.compare(m_form.data.table, Qt::CaseInsensitive) != 0)
            reference->place.refuse(u"Der Bericht hat keine Tabelle '"_s + reference->table + u"'."_s);
    }
}

void Rows::bindSummary()
{
    std::vector<Key>& keys = m_form.data.summarise;
    for (Key& key : keys) {
        m_tables.require(key.column);
        std::vector<Reference*> references;
        collect(key.show, references);
        bind(references);
        if (holds(key.show, {})) m_keys.append(u'[' + m_form.data.table + u"].["_s + key.column + u']');
    }
}

/// The rows stand group by group, whatever they are sorted by inside.
void Rows::bindGroups()
{
    std::vector<Group> formed;
    for (Group& group : m_form.groups) {
        const auto& by = std::get<Reference>(group.by);
        if (by.column < 0) continue;
        sortBy(m_columns[static_cast<std::size_t>(by.column)].expression, false);
        formed.push_back(std::move(group));
    }
    m_form.groups = std::move(formed);
}

void Rows::bind(const std::vector<Reference*>& references)
{
    for (Reference* const reference : references)
        bind(*reference);
}

void Rows::bind(Reference& reference)
{
    if (reference.kind == Reference::Kind::Today) reference.constant = sys::heute();
    if (reference.kind == Reference::Kind::Formula) {
        const Operand& value = formula(reference.name);
        if (const auto* const column = std::get_if<Reference>(&value))
            reference.column = select(column->name);
        else
            reference.constant = std::get<jet::Value>(value);
    }
    if (!reference.hasColumn()) return;
    if (m_tables.isLookup(reference.table))
        reference.constant = m_tables.lookUp(reference.table, reference.name);
    else
        reference.column = select(reference.name);
}

const Operand& Rows::formula(const QString& name) const
{
    return named(m_form.formulas, name, &FormulaDefault::name)->value;
}

/// One that is wrong is told with its line in the form, and with what the engine says of it.
void Rows::checkComputed() const
{
    for (const ComputedColumn& column : m_form.data.computed) {
        try {
            m_tables.rows().OpenRecordset(u"SELECT TOP 1 "_s + column.expression + u" FROM ["_s +
                                          m_form.data.table + u']');
        } catch (const jet::Error& error) {
            column.place.refuse(u"Die Spalte '"_s + column.name + u"' lässt sich nicht berechnen. "_s +
                                error.text());
        }
    }
}

QString Rows::expressionOf(const QString& column) const
{
    const auto& computed = m_form.data.computed;
    const auto found = named(computed, column, &ComputedColumn::name);
    if (found != computed.end()) return found->expression;
    const QString expression = u'[' + m_form.data.table + u"].["_s + column + u']';
    const bool isThere = m_form.data.summarise.empty() ? m_tables.has(column)
                                                       : m_keys.contains(expression, Qt::CaseInsensitive);
    return isThere ? expression : QString();
}

bool Rows::isHiddenKey(const QString& column) const
{
    const auto& keys = m_form.data.summarise;
    return named(keys, column, &Key::column) != keys.end() && expressionOf(column).isEmpty();
}

/// The place of a column in the rows; -1: a key by which the rows are not told apart now.
int Rows::select(const QString& column)
{
    const QString name = column.toLower();
    const auto found = named(m_columns, name, &Column::name);
    if (found != m_columns.end()) return static_cast<int>(found - m_columns.begin());
    if (isHiddenKey(column)) return -1;
    const QString expression = expressionOf(column);
    if (expression.isEmpty()) {
        m_tables.require(column);
        Place{u"Das Berichtsformular '"_s + m_form.file + u'\''}.refuse(
            u"Die zusammengefassten Zeilen haben keine Spalte '"_s + column + u"'."_s);
    }
    m_columns.push_back({name, expression});
    return static_cast<int>(m_columns.size()) - 1;
}

void Rows::sortBy(const QString& expression, bool descending)
{
    if (m_sorted.contains(expression, Qt::CaseInsensitive)) return;
    m_sorted.append(expression);
    m_order.append(descending ? expression + u" DESC"_s : expression);
}

/// In a summarised form a name that only single rows have sorts nothing.
void Rows::sortByField(const QString& field)
{
    const Place place{u"Das Sortierfeld '"_s + field + u'\''};
    const bool descending = field.startsWith(u'-');
    if (!descending && !field.startsWith(u'+')) place.refuse(u"Es beginnt nicht mit + oder -."_s);
    const Operand operand = readOperand(QStringView(field).mid(1), place);
    const auto* const reference = std::get_if<Reference>(&operand);
    if (!reference || reference->kind != Reference::Kind::Column ||
        reference->table.compare(m_form.data.table, Qt::CaseInsensitive) != 0)
        place.refuse(u"Sortiert wird nach einer Spalte der Tabelle '"_s + m_form.data.table + u"'."_s);
    const QString expression = expressionOf(reference->name);
    if (!expression.isEmpty())
        sortBy(expression, descending);
    else
        m_tables.require(reference->name);
}

QString Rows::statement() const
{
    QStringList selected;
    for (const Column& column : m_columns)
        selected.append(column.expression);
    if (selected.isEmpty()) selected.append(u"1"_s); // a form that only counts its rows
    QString statement = u"SELECT "_s + selected.join(u", "_s) + u" FROM ["_s + m_form.data.table + u']';
    if (!m_keys.isEmpty()) statement += u" GROUP BY "_s + m_keys.join(u", "_s);
    if (!m_order.isEmpty()) statement += u" ORDER BY "_s + m_order.join(u", "_s);
    return statement;
}

/// Sums that are known before the first page; only for them the rows are read twice.
void Rows::sumUp()
{
    std::vector<Reference*> wanted = bandReferences(m_form);
    std::erase_if(wanted,
                  [](const Reference* reference) { return reference->kind != Reference::Kind::Total; });
    if (wanted.empty()) return;
    Totals totals(wanted, 0);
    while (next())
        totals.add(m_row);
    for (Reference* const reference : wanted)
        reference->constant = totals.value(*reference, 0);
    m_position = 0;
    m_read = {};
}

} // namespace report
