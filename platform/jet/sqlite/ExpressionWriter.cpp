#include "platform/jet/sqlite/ExpressionWriter.h"

#include "platform/jet/bind/Functions.h"
#include "platform/jet/sqlite/Names.h"

#include <algorithm>

namespace jet::sqlite {

namespace {

using sql::Expression;
using sql::Op;

bool isCondition(const Expression& expression)
{
    switch (expression.op) {
    case Op::Not:
    case Op::Equal:
    case Op::NotEqual:
    case Op::Less:
    case Op::Greater:
    case Op::LessEqual:
    case Op::GreaterEqual:
    case Op::Like:
    case Op::In:
    case Op::Between:
    case Op::IsNull:
    case Op::And:
    case Op::Or: return true;
    case Op::Call: return bind::functionAt(expression.function).kind == bind::FunctionKind::IsNull;
    default: return false;
    }
}

/// Whether it is -1, 0 or NULL, wherever its operands come from.
bool isTruth(const Expression& expression)
{
    return isCondition(expression) || (expression.op == Op::Constant && expression.type == Type::Boolean);
}

bool anyText(const Expression& expression)
{
    return std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [](const auto& argument) { return isText(argument->type); });
}

/// Trim(LCase(x)) or LCase(Trim(x)): what the index for look-ups while typing holds.
const Expression* folded(const Expression& call)
{
    if (call.op != Op::Call || call.arguments.size() != 1 || call.arguments[0]->op != Op::Call) return nullptr;
    const auto outer = bind::functionAt(call.function).name;
    const auto inner = bind::functionAt(call.arguments[0]->function).name;
    const bool folds = (outer == u"TRIM" && inner == u"LCASE") || (outer == u"LCASE" && inner == u"TRIM");
    return folds ? call.arguments[0]->arguments[0].get() : nullptr;
}

/// x of Len(x) > 0, which asks whether there is any text.
const Expression* askedForText(const Expression& greater)
{
    const Expression& length = *greater.arguments[0];
    const Expression& limit = *greater.arguments[1];
    const bool counts = length.op == Op::Call && bind::functionAt(length.function).name == u"LEN";
    return counts && limit.op == Op::Constant && limit.constant == Value(0) ? length.arguments[0].get() : nullptr;
}

bool needsConversion(Type from, Type to)
{
    if (to == Type::Boolean) return from != Type::Boolean;
    if (from == to || from == Type::Null || (isText(from) && isText(to))) return false;
    return !(to == Type::Double && isNumber(from) && from != Type::Boolean);
}

} // namespace

void ExpressionWriter::value(const Expression& expression)
{
    switch (expression.op) {
    case Op::Parameter: m_out += '?' + QByteArray::number(expression.parameter + 1); return;
    case Op::ParameterList:
        m_out += "(SELECT value FROM json_each(?" + QByteArray::number(expression.parameter + 1) + "))";
        return;
    case Op::Constant: return constant(expression.constant);
    case Op::Column: return column(expression);
    case Op::Negate:
        m_out += "(-";
        number(*expression.arguments[0]);
        m_out += ')';
        return;
    case Op::Power: return function(expression, "jet_pow");
    case Op::Multiply: return arithmetic(expression, "*");
    case Op::Divide: return function(expression, "jet_div");
    case Op::IntegerDivide: return function(expression, "jet_idiv");
    case Op::Modulo: return function(expression, "jet_mod");
    case Op::Add:
    case Op::Subtract: return sum(expression);
    case Op::Concatenate:
        m_out += "(coalesce(";
        text(*expression.arguments[0]);
        m_out += ",'')||coalesce(";
        text(*expression.arguments[1]);
        m_out += ",''))";
        return;
    case Op::Call:
        if (!isCondition(expression)) return call(expression);
        [[fallthrough]];
    default:
        m_out += "(-(";
        condition(expression);
        m_out += "))";
    }
}

void ExpressionWriter::condition(const Expression& expression)
{
    switch (expression.op) {
    case Op::Not:
        m_out += "(NOT ";
        condition(*expression.arguments[0]);
        m_out += ')';
        return;
    case Op::Equal: return comparison(expression, "=");
    case Op::NotEqual: return comparison(expression, "<>");
    case Op::Less: return comparison(expression, "<");
    case Op::Greater:
        if (const Expression* asked = askedForText(expression)) return hasText(*asked);
        return comparison(expression, ">");
    case Op::LessEqual: return comparison(expression, "<=");
    case Op::GreaterEqual: return comparison(expression, ">=");
    case Op::Like:
        m_out += "jet_like(";
        text(*expression.arguments[0]);
        m_out += ',';
        text(*expression.arguments[1]);
        m_out += ')';
        return;
    case Op::In: return in(expression);
    case Op::Between: return between(expression);
    case Op::And: return chain(expression, " AND ");
    case Op::Or: return chain(expression, " OR ");
    case Op::IsNull:
        m_out += '(';
        value(*expression.arguments[0]);
        m_out += " IS NULL)";
        return;
    case Op::Call:
        if (isCondition(expression)) {
            m_out += '(';
            value(*expression.arguments[0]);
            m_out += " IS NULL)";
            return;
        }
        [[fallthrough]];
    default: value(expression);
    }
}

void ExpressionWriter::key(const Expression& expression)
{
    const Expression* magnitude = &expression;
    while (magnitude->op == Op::Negate)
        magnitude = magnitude->arguments[0].get();
    const bool constantKey = magnitude->op == Op::Constant; // bare, SQLite would take it for the number of a column
    if (constantKey) m_out += "ifnull(";
    value(expression);
    if (constantKey) m_out += ",NULL)";
    if (isText(expression.type)) m_out += " COLLATE " + collationName();
}

void ExpressionWriter::assigned(const Expression& expression, Type to, const QString& field)
{
    const bool certain = isTruth(expression) || (expression.type == Type::Boolean && field.isEmpty());
    if (certain && to == Type::Boolean) { // the one type whose columns hold no NULL
        m_out += "ifnull(";
        value(expression);
        m_out += ",0)";
        return;
    }
    // What is computed may be too large for a number of its type; what a column holds was perhaps not written by us.
    const bool computed = expression.op != Op::Column || !field.isEmpty();
    const bool checked = isNumber(to) && computed && expression.op != Op::Parameter && expression.op != Op::Constant;
    if (!checked && !needsConversion(expression.type, to)) return value(expression);
    m_out += "jet_convert(";
    value(expression);
    m_out += ',' + QByteArray::number(static_cast<int>(expression.type)) + ',' +
             QByteArray::number(static_cast<int>(to)) + ",'" + field.toUtf8().replace("'", "''") + "')";
}

void ExpressionWriter::comparison(const Expression& expression, const char* op)
{
    const auto& left = *expression.arguments[0];
    const auto& right = *expression.arguments[1];
    const bool mixedDates = (left.type == Type::Date) != (right.type == Type::Date);
    m_out += '(';
    operand(left, mixedDates);
    if (anyText(expression)) m_out += " COLLATE " + collationName();
    m_out += op;
    operand(right, mixedDates);
    m_out += ')';
}

/// A date that is compared with a number is its day number; NULL stays what it is.
/// Counting characters in every row would cost more than reading it. Byte by byte, since to the engine's collation blanks
/// alone equal no text.
void ExpressionWriter::hasText(const Expression& expression)
{
    m_out += '(';
    text(expression);
    m_out += " COLLATE BINARY<>'')";
}

void ExpressionWriter::operand(const Expression& expression, bool asNumber)
{
    if (asNumber && expression.type == Type::Date)
        number(expression);
    else
        value(expression);
}

void ExpressionWriter::chain(const Expression& expression, const char* op)
{
    m_out += '(';
    for (std::size_t i = 0; i < expression.arguments.size(); ++i) {
        if (i > 0) m_out += op;
        condition(*expression.arguments[i]);
    }
    m_out += ')';
}

void ExpressionWriter::in(const Expression& expression)
{
    const auto& arguments = expression.arguments;
    const bool mixedDates = std::any_of(arguments.begin(), arguments.end(), [&](const auto& part) {
        return part->type != Type::Null && (part->type == Type::Date) != (arguments[0]->type == Type::Date);
    });
    m_out += '(';
    operand(*arguments[0], mixedDates);
    if (anyText(expression)) m_out += " COLLATE " + collationName();
    m_out += " IN ";
    if (arguments[1]->op == Op::ParameterList) {
        value(*arguments[1]);
    } else {
        m_out += '(';
        for (std::size_t i = 1; i < arguments.size(); ++i) {
            if (i > 1) m_out += ',';
            operand(*arguments[i], mixedDates);
        }
        m_out += ')';
    }
    m_out += ')';
}

/// The order of the bounds does not count.
void ExpressionWriter::between(const Expression& expression)
{
    const auto& arguments = expression.arguments;
    const auto has = [&](bool date) {
        return std::any_of(arguments.begin(), arguments.end(), [date](const auto& part) {
            return part->type != Type::Null && (part->type == Type::Date) == date;
        });
    };
    const bool mixedDates = has(true) && has(false);
    const auto bound = [&](const char* which) {
        m_out += which;
        operand(*arguments[1], mixedDates);
        if (anyText(expression)) m_out += " COLLATE " + collationName();
        m_out += ',';
        operand(*arguments[2], mixedDates);
        m_out += ')';
    };
    m_out += '(';
    operand(*arguments[0], mixedDates);
    if (anyText(expression)) m_out += " COLLATE " + collationName();
    m_out += " BETWEEN ";
    bound("min(");
    m_out += " AND ";
    bound("max(");
    m_out += ')';
}

void ExpressionWriter::column(const Expression& expression)
{
    if (valuesFrom >= 0) {
        m_out += '?' + QByteArray::number(valuesFrom + expression.column + 1);
        return;
    }
    const auto& table = *m_tables[static_cast<std::size_t>(expression.source)];
    m_out += 't' + QByteArray::number(expression.source) + '.' +
             quoted(table.columns[static_cast<std::size_t>(expression.column)].name);
}

void ExpressionWriter::constant(const Value& value)
{
    if (value.isNull())
        m_out += "NULL";
    else if (value.type() == Type::Boolean)
        m_out += value.toBool() ? "(-1)" : "0";
    else
        m_out += value.type() == Type::Long ? QByteArray::number(value.toLong())
                                            : QByteArray::number(value.toDouble(), 'g', 17);
}

void ExpressionWriter::arithmetic(const Expression& expression, const char* op)
{
    m_out += '(';
    number(*expression.arguments[0]);
    m_out += op;
    number(*expression.arguments[1]);
    m_out += ')';
}

void ExpressionWriter::sum(const Expression& expression)
{
    if (isText(expression.type)) {
        m_out += '(';
        value(*expression.arguments[0]);
        m_out += "||";
        value(*expression.arguments[1]);
        m_out += ')';
        return;
    }
    if (expression.type == Type::Date) m_out += "jet_date(";
    arithmetic(expression, expression.op == Op::Add ? "+" : "-");
    if (expression.type == Type::Date) m_out += ')';
}

void ExpressionWriter::function(const Expression& expression, const char* name)
{
    m_out += name;
    m_out += '(';
    number(*expression.arguments[0]);
    m_out += ',';
    number(*expression.arguments[1]);
    m_out += ')';
}

void ExpressionWriter::call(const Expression& call)
{
    const bind::Function& function = bind::functionAt(call.function);
    if (bind::isAggregate(function)) return aggregate(call);
    if (const Expression* inner = folded(call)) {
        m_out += FoldFunction;
        m_out += '(';
        text(*inner);
        m_out += ')';
        return;
    }
    if (function.kind == bind::FunctionKind::IIf) return choice(call);
    m_out += function.sqlite;
    m_out += '(';
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        if (i > 0) m_out += ',';
        argument(*call.arguments[i], function.arguments[i]);
    }
    m_out += ')';
}

void ExpressionWriter::choice(const Expression& call)
{
    const Expression& test = *call.arguments[0];
    // Both branches take the type of the whole, where it lies otherwise in the file.
    const auto branch = [&](const Expression& value) {
        if (isText(call.type) || call.type == Type::Date) return assigned(value, call.type);
        argument(value, 'A');
    };
    // IIF(ISNULL(x), y, x), which stands around every quantity of a list: reads x once.
    const bool replacesNull = test.op == Op::Call &&
                              bind::functionAt(test.function).kind == bind::FunctionKind::IsNull &&
                              sameExpression(*test.arguments[0], *call.arguments[2]);
    m_out += replacesNull ? "ifnull(" : "iif(";
    if (replacesNull)
        branch(*call.arguments[2]);
    else
        argument(test, 'C');
    m_out += ',';
    branch(*call.arguments[1]);
    if (!replacesNull) {
        m_out += ',';
        branch(*call.arguments[2]);
    }
    m_out += ')';
}

void ExpressionWriter::aggregate(const Expression& call)
{
    const bind::Function& function = bind::functionAt(call.function);
    if (call.star) {
        m_out += "count(*)";
        return;
    }
    const Expression& operand = *call.arguments[0];
    const bool keyed = function.kind == bind::FunctionKind::First || function.kind == bind::FunctionKind::Last;
    if (keyed && firstRow == FirstRow::ByBareColumn) return value(operand);
    m_out += function.sqlite;
    m_out += '(';
    argument(operand, function.arguments[0]);
    if (keyed) m_out += ",t0._rowid_";
    if (function.kind == bind::FunctionKind::Aggregate && isText(operand.type)) m_out += " COLLATE " + collationName();
    m_out += ')';
}

void ExpressionWriter::argument(const Expression& argument, char kind)
{
    switch (kind) {
    case 'T': return text(argument);
    case 'N':
    case 'X': return number(argument); // a text as it is
    case 'C': return condition(argument);
    case 'D': return assigned(argument, Type::Date);
    default: return value(argument);
    }
}

void ExpressionWriter::number(const Expression& expression)
{
    if (expression.type != Type::Date) return value(expression);
    m_out += "jet_daynumber(";
    value(expression);
    m_out += ')';
}

void ExpressionWriter::text(const Expression& expression)
{
    assigned(expression, isText(expression.type) ? expression.type : Type::Text);
}

} // namespace jet::sqlite
