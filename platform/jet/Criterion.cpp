#include "platform/jet/Criterion.h"

#include "platform/jet/bind/ExpressionBinder.h"
#include "platform/jet/sql/Parser.h"
#include "platform/jet/sqlite/SelectWriter.h"

namespace jet {

namespace {

constexpr qsizetype MostCriteria = 50;

void shiftParameters(sql::Expression& expression, int by)
{
    if (expression.parameter >= 0) expression.parameter += by;
    for (auto& argument : expression.arguments)
        shiftParameters(*argument, by);
}

sql::ExpressionPtr boundToTable(const sqlite::Plan& plan, const sql::Shape& criterion)
{
    auto expression = sql::parseCriterion(criterion);
    shiftParameters(*expression, plan.parameters);
    bind::OutputBinder(plan.select->columns, bind::OutputBinder::By::Expression).bindCondition(expression);
    return expression;
}

/// `use` keeps apart what the same criterion becomes for all keys, for some and for values.
template <typename Write>
QByteArray kept(sqlite::Plan& plan, const sql::Shape& criterion, QChar use, Write write)
{
    const QString key = criterion.key.isEmpty() ? QString() : criterion.key + use;
    if (const auto known = plan.criteria.constFind(key); known != plan.criteria.constEnd()) return *known;
    QByteArray text = write();
    if (plan.criteria.size() >= MostCriteria) plan.criteria.clear();
    if (!key.isEmpty()) plan.criteria.insert(key, text);
    return text;
}

} // namespace

QByteArray criterionKeys(sqlite::Plan& plan, const sql::Shape& criterion)
{
    return kept(plan, criterion, u'K', [&] { return sqlite::writeFind(*plan.select, *boundToTable(plan, criterion)); });
}

QByteArray criterionKeysAmong(sqlite::Plan& plan, const sql::Shape& criterion)
{
    return kept(plan, criterion, u'A', [&] {
        const int keys = plan.parameters + static_cast<int>(criterion.parameters.size());
        return sqlite::writeFindAmong(*plan.select, *boundToTable(plan, criterion), keys);
    });
}

QByteArray criterionTest(sqlite::Plan& plan, const sql::Shape& criterion)
{
    return kept(plan, criterion, u'V', [&] {
        auto expression = sql::parseCriterion(criterion);
        bind::OutputBinder(plan.select->columns, bind::OutputBinder::By::Value).bindCondition(expression);
        return sqlite::writeTest(*expression, static_cast<int>(criterion.parameters.size()));
    });
}

} // namespace jet
