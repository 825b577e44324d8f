#include "platform/report/FormNames.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

namespace {

bool isSame(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

Condition FormNames::condition(const QString& text, const Place& place, TotalsAllowed totals) const
{
    Condition condition = readCondition(text, place);
    std::vector<Reference*> references;
    collect(condition, references);
    check(references, totals);
    return condition;
}

void FormNames::check(Operand& operand, TotalsAllowed totals) const
{
    std::vector<Reference*> references;
    collect(operand, references);
    check(references, totals);
}

void FormNames::check(Template& text, TotalsAllowed totals) const
{
    std::vector<Reference*> references;
    collect(text, references);
    check(references, totals);
}

void FormNames::check(const std::vector<Reference*>& references, TotalsAllowed totals) const
{
    for (const Reference* const reference : references)
        check(*reference, totals);
}

void FormNames::check(const Reference& reference, TotalsAllowed totals) const
{
    const Place& place = reference.place;
    if (reference.kind == Reference::Kind::Total && totals == TotalsAllowed::No)
        place.refuse(u"Die Gesamtsumme steht nur in Bändern."_s);
    if (reference.isRunning() && totals != TotalsAllowed::Yes)
        place.refuse(u"Summen und Zählungen stehen nur in Fußzeilen, im Detail und in Seitenköpfen."_s);
    if (reference.kind == Reference::Kind::Formula && !isFormula(reference.name))
        place.refuse(u"Die Formel '"_s + reference.name + u"' ist nicht mit <formula> angegeben."_s);
    if (!reference.hasColumn() || isSame(reference.table, m_form.data.table)) return;
    if (reference.isTotal())
        place.refuse(u"Die Tabelle '"_s + reference.table + u"' ist nicht die von <data>."_s);
    if (!isLookup(reference.table))
        place.refuse(u"Die Tabelle '"_s + reference.table +
                     u"' ist nicht die von <data> und nicht die eines <lookup>."_s);
}

bool FormNames::isLookup(const QString& table) const
{
    return std::any_of(m_form.lookups.begin(), m_form.lookups.end(),
                       [&table](const Lookup& lookup) { return isSame(lookup.table, table); });
}

bool FormNames::isFormula(const QString& name) const
{
    return std::any_of(m_form.formulas.begin(), m_form.formulas.end(),
                       [&name](const FormulaDefault& formula) { return isSame(formula.name, name); });
}

} // namespace report
