#include "platform/report/Formulas.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

namespace {

FormulaDefault readFormula(const QString& text)
{
    const qsizetype equals = text.indexOf(u'=');
    const QString name = text.left(equals).trimmed();
    if (equals < 0 || name.isEmpty())
        Place{u"Die Formel '"_s + text + u'\''}.refuse(u"Sie hat nicht die Form \"Name = Ausdruck\"."_s);
    const Place place{u"Die Formel '"_s + name + u"' ist fehlerhaft"_s};
    FormulaDefault formula{name, readOperand(QStringView(text).mid(equals + 1), place)};
    const auto* const reference = std::get_if<Reference>(&formula.value);
    if (reference && reference->kind != Reference::Kind::Column)
        place.refuse(u"Sie kann nur ein Text, eine Zahl oder eine {TABELLE.Spalte} sein."_s);
    return formula;
}

} // namespace

void setFormulas(Form& form, const QMap<int, QString>& formulas)
{
    for (const QString& text : formulas) { // ascending by index
        FormulaDefault formula = readFormula(text);
        const auto found =
            std::find_if(form.formulas.begin(), form.formulas.end(), [&formula](const auto& known) {
                return known.name.compare(formula.name, Qt::CaseInsensitive) == 0;
            });
        if (found != form.formulas.end()) found->value = std::move(formula.value);
    }
}

} // namespace report
