#include "platform/jet/sql/Tree.h"

namespace jet::sql {

ExpressionPtr Expression::clone() const
{
    auto copy = std::make_unique<Expression>();
    copy->op = op;
    copy->name = name;
    copy->table = table;
    copy->constant = constant;
    copy->parameter = parameter;
    copy->star = star;
    copy->position = position;
    copy->depth = depth;
    copy->type = type;
    copy->source = source;
    copy->column = column;
    copy->function = function;
    for (const auto& argument : arguments)
        copy->arguments.push_back(argument->clone());
    return copy;
}

bool sameExpression(const Expression& left, const Expression& right)
{
    if (left.op != right.op || left.parameter != right.parameter || left.source != right.source ||
        left.column != right.column || left.function != right.function || left.star != right.star ||
        !(left.constant == right.constant) || left.arguments.size() != right.arguments.size())
        return false;
    for (std::size_t i = 0; i < left.arguments.size(); ++i)
        if (!sameExpression(*left.arguments[i], *right.arguments[i])) return false;
    return true;
}

} // namespace jet::sql
