#include "platform/jet/bind/ExpressionBinder.h"

#include "platform/jet/Errors.h"
#include "platform/jet/value/Functions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace jet::bind {

namespace {

using sql::Op;

[[noreturn]] void mismatch(const sql::Expression& expression)
{
    raise(ErrorNumber::TypeMismatch, {}, expression.position);
}

void requireComparable(const sql::Expression& left, const sql::Expression& right)
{
    if (left.type == Type::Null || right.type == Type::Null) return;
    if (isText(left.type) != isText(right.type)) mismatch(left);
}

void requireNumber(const sql::Expression& operand)
{
    if (isText(operand.type)) mismatch(operand);
}

void requireCondition(const sql::Expression& condition)
{
    if (isText(condition.type) || condition.type == Type::Date) mismatch(condition);
}

/// Whether + joins two texts; one with NULL is NULL.
bool joinsTexts(const sql::Expression& sum)
{
    const Type left = sum.arguments[0]->type;
    const Type right = sum.arguments[1]->type;
    return (isText(left) && (isText(right) || right == Type::Null)) || (isText(right) && left == Type::Null);
}

/// The type that holds the values of both.
Type commonType(Type left, Type right)
{
    if (left == Type::Null || left == right) return right;
    if (right == Type::Null) return left;
    if (left == Type::Memo || right == Type::Memo) return Type::Memo;
    if (isText(left) || isText(right)) return Type::Text;
    if (left == Type::Date || right == Type::Date) return Type::Date;
    const auto fitsLong = [](Type type) { return isWhole(type) || type == Type::Boolean; };
    return fitsLong(left) && fitsLong(right) ? Type::Long : Type::Double;
}

Type sumType(const sql::Expression& sum)
{
    const Type left = sum.arguments[0]->type;
    const Type right = sum.arguments[1]->type;
    if (sum.op == Op::Subtract && left == Type::Date && right == Type::Date) return Type::Double;
    return commonType(left == Type::Boolean ? Type::Long : left, right == Type::Boolean ? Type::Long : right);
}

} // namespace

bool containsAggregate(const sql::Expression& expression)
{
    if (expression.op == Op::Call && isAggregate(functionAt(expression.function))) return true;
    return std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [](const auto& argument) { return containsAggregate(*argument); });
}

void ExpressionBinder::bind(sql::ExpressionPtr& expression)
{
    if (expression->op == Op::Column) return bindColumn(expression);
    if (expression->op == Op::Call)
        bindCall(*expression);
    else
        bindArguments(*expression);
    expression->type = typeOf(*expression);
}

void ExpressionBinder::bindCondition(sql::ExpressionPtr& expression)
{
    bind(expression);
    requireCondition(*expression);
}

void ExpressionBinder::bindArguments(sql::Expression& expression)
{
    for (auto& argument : expression.arguments)
        bind(argument);
    auto& arguments = expression.arguments;
    switch (expression.op) {
    case Op::Add:
        if (joinsTexts(expression)) break;
        [[fallthrough]];
    case Op::Negate:
    case Op::Power:
    case Op::Multiply:
    case Op::Divide:
    case Op::IntegerDivide:
    case Op::Modulo:
    case Op::Subtract:
        std::for_each(arguments.begin(), arguments.end(), [](auto& part) { requireNumber(*part); });
        break;
    case Op::Equal:
    case Op::NotEqual:
    case Op::Less:
    case Op::Greater:
    case Op::LessEqual:
    case Op::GreaterEqual:
    case Op::In:
    case Op::Between:
        for (std::size_t i = 1; i < arguments.size(); ++i)
            requireComparable(*arguments[0], *arguments[i]);
        // A list is handed over as a whole, so its dates cannot become numbers one by one.
        if (arguments[1]->op == Op::ParameterList &&
            (arguments[1]->type == Type::Date) != (arguments[0]->type == Type::Date))
            mismatch(expression);
        break;
    case Op::Not:
    case Op::And:
    case Op::Or:
        std::for_each(arguments.begin(), arguments.end(), [](auto& part) { requireCondition(*part); });
        break;
    default: break;
    }
}

void ExpressionBinder::bindCall(sql::Expression& call)
{
    if (!isFunction(call.name)) raise(ErrorNumber::UndefinedFunction, {call.name}, call.position);
    call.function = findFunction(call.name, call.star ? 1 : call.arguments.size());
    const bool starFits =
        !call.star || (call.function >= 0 && functionAt(call.function).kind == FunctionKind::Count);
    if (call.function < 0 || !starFits)
        raise(ErrorNumber::ExpressionSyntax, {u"Falsche Anzahl an Argumenten in Funktion"_s, call.name},
              call.position);
    const Function& function = functionAt(call.function);
    if (isAggregate(function)) return bindAggregate(call);
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        bind(call.arguments[i]);
        const sql::Expression& argument = *call.arguments[i];
        if (function.arguments[i] == 'N' || function.arguments[i] == 'D') requireNumber(argument);
        if (function.arguments[i] == 'C') requireCondition(argument);
    }
}

void ExpressionBinder::bindAggregate(sql::Expression& call)
{
    if (!aggregatesAllowed) raise(ErrorNumber::AggregateNotAllowed, {call.name}, call.position);
    aggregatesAllowed = false; // none inside another
    for (auto& argument : call.arguments) {
        bind(argument);
        if (functionAt(call.function).arguments[0] == 'N') requireNumber(*argument);
    }
    aggregatesAllowed = true;
}

Type ExpressionBinder::typeOf(const sql::Expression& expression) const
{
    const auto& arguments = expression.arguments;
    switch (expression.op) {
    case Op::Parameter:
    case Op::ParameterList:
    case Op::Constant:
    case Op::Column: return expression.type;
    case Op::Call: {
        const Function& function = functionAt(expression.function);
        if (function.result != Type::Null) return function.result;
        if (function.kind == FunctionKind::IIf) return commonType(arguments[1]->type, arguments[2]->type);
        return arguments[0]->type == Type::Counter ? Type::Long : arguments[0]->type;
    }
    case Op::Negate: return commonType(Type::Long, arguments[0]->type);
    case Op::Power:
    case Op::Divide: return Type::Double;
    case Op::IntegerDivide:
    case Op::Modulo: return Type::Long;
    case Op::Multiply: return commonType(Type::Long, commonType(arguments[0]->type, arguments[1]->type));
    case Op::Add:
    case Op::Subtract: return sumType(expression);
    case Op::Concatenate:
        return arguments[0]->type == Type::Memo || arguments[1]->type == Type::Memo ? Type::Memo : Type::Text;
    default: return Type::Boolean;
    }
}

void ColumnBinder::bindColumn(sql::ExpressionPtr& column)
{
    for (std::size_t source = 0; source < m_tables.size(); ++source) {
        if (!column->table.isEmpty() && !sameName(m_sources[source].alias, column->table)) continue;
        const int found = m_tables[source]->find(column->name);
        if (found < 0) continue;
        if (column->source >= 0) raise(ErrorNumber::AmbiguousColumn, {column->name}, column->position);
        column->source = static_cast<int>(source);
        column->column = found;
        column->type = m_tables[source]->columns[static_cast<std::size_t>(found)].type;
    }
    if (column->source < 0)
        m_unknown.insert(
            (column->table.isEmpty() ? column->name : column->table + u"."_s + column->name).toCaseFolded());
}

void OutputBinder::bindColumn(sql::ExpressionPtr& column)
{
    const auto found = std::find_if(m_columns.begin(), m_columns.end(), [&](const OutputColumn& output) {
        return sameName(output.field.name, column->name);
    });
    if (found == m_columns.end())
        raise(ErrorNumber::UnknownNameInCriterion, {column->name}, column->position);
    if (m_by == By::Expression) {
        column = found->expression->clone();
        return;
    }
    column->column = static_cast<int>(found - m_columns.begin());
    column->type = found->field.type;
}

} // namespace jet::bind
