#include "platform/jet/rows/Criterion.h"

#include "platform/jet/bind/ExpressionBinder.h"
#include "platform/jet/sql/Parser.h"

namespace jet {

namespace {

constexpr qsizetype MostCriteria = 50;

void shiftParameters(sql::Expression& expression, int by)
{
    if (expression.parameter >= 0) expression.parameter += by;
    for (auto& argument : expression.arguments)
        shiftParameters(*argument, by);
}

/// What a criterion has become before, or becomes now; one without a key is not kept.
template <typename Kept, typename Make>
std::shared_ptr<Kept> kept(QHash<QString, std::shared_ptr<Kept>>& known, const QString& key, Make make)
{
    if (const auto found = known.constFind(key); found != known.constEnd()) return *found;
    std::shared_ptr<Kept> made = make();
    if (known.size() >= MostCriteria) known.clear();
    if (!key.isEmpty()) known.insert(key, made);
    return made;
}

} // namespace

std::shared_ptr<store::Filter> filterOf(Plan& plan, const sql::Shape& criterion)
{
    return kept(plan.filters, criterion.key, [&] {
        auto expression = sql::parseCriterion(criterion);
        shiftParameters(*expression, plan.parameters);
        bind::OutputBinder(plan.select->columns, bind::OutputBinder::By::Expression)
            .bindCondition(expression);
        return plan.query->filter(*expression,
                                  plan.parameters + static_cast<int>(criterion.parameters.size()));
    });
}

std::shared_ptr<store::Test> testOf(Plan& plan, store::Connection& connection, const sql::Shape& criterion)
{
    return kept(plan.tests, criterion.key, [&] {
        auto expression = sql::parseCriterion(criterion);
        bind::OutputBinder(plan.select->columns, bind::OutputBinder::By::Value).bindCondition(expression);
        return connection.test(*expression, static_cast<int>(criterion.parameters.size()));
    });
}

} // namespace jet
