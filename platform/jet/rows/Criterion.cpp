#include "platform/jet/rows/Criterion.h"

#include "platform/jet/TextOrder.h"
#include "platform/jet/bind/ExpressionBinder.h"
#include "platform/jet/sql/Parser.h"

#include <algorithm>

namespace jet {

namespace {

constexpr qsizetype MostCriteria = 50;

void shiftParameters(sql::Expression& expression, int by)
{
    if (expression.parameter >= 0) expression.parameter += by;
    for (auto& argument : expression.arguments)
        shiftParameters(*argument, by);
}

/// A criterion of texts alone, all of which must be equal: names, as rows are mostly looked for by. It is
/// met without the store, which would be asked once a row.
class EqualTexts : public store::Test {
public:
    /// No value: the criterion is another one.
    static std::shared_ptr<EqualTexts> of(const sql::Expression& criterion)
    {
        auto test = std::make_shared<EqualTexts>();
        return test->take(criterion) ? test : nullptr;
    }

    bool meets(const store::Parameters& parameters, std::span<const Value> row) override
    {
        return std::ranges::all_of(m_pairs, [&](const Pair& pair) {
            const Value& value = row[static_cast<std::size_t>(pair.column)];
            const Value& wanted = parameters[static_cast<std::size_t>(pair.parameter)].front();
            return !value.isNull() && compareTexts(value.toText(), wanted.toText()) == 0;
        });
    }

private:
    struct Pair {
        int column, parameter;
    };

    bool take(const sql::Expression& part)
    {
        if (part.op == sql::Op::And)
            return std::ranges::all_of(part.arguments,
                                       [this](const auto& argument) { return take(*argument); });
        if (part.op != sql::Op::Equal) return false;
        const auto& left = *part.arguments[0];
        const auto& right = *part.arguments[1];
        m_pairs.push_back({left.column, right.parameter});
        return left.op == sql::Op::Column && right.op == sql::Op::Parameter && isText(left.type) &&
               isText(right.type);
    }

    std::vector<Pair> m_pairs;
};

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
    return kept(plan.tests, criterion.key, [&]() -> std::shared_ptr<store::Test> {
        auto expression = sql::parseCriterion(criterion);
        bind::OutputBinder(plan.select->columns, bind::OutputBinder::By::Value).bindCondition(expression);
        if (auto texts = EqualTexts::of(*expression)) return texts;
        return connection.test(*expression, static_cast<int>(criterion.parameters.size()));
    });
}

} // namespace jet
