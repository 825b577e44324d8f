#include "platform/jet/sqlite/ExpressionWriter.h"

#include "platform/jet/sqlite/Functions.h"
#include "platform/jet/sqlite/Names.h"

#include <algorithm>
#include <span>

namespace jet::sqlite {

namespace {

using sql::Expression;
using sql::Op;

/// How an operator is written. "%N0" is its first operand as a number, T as a text, C as a condition, V as it
/// is, M as a number where a date meets what is none; "%K" the collation where a text is among the operands.
struct Form {
    Op op;
    const char* text;
};

// clang-format off
constexpr Form ValueForms[] = {
    {Op::Negate,        "(-%N0)"},
    {Op::Power,         "jet_pow(%N0,%N1)"},
    {Op::Multiply,      "(%N0*%N1)"},
    {Op::Divide,        "jet_div(%N0,%N1)"},
    {Op::IntegerDivide, "jet_idiv(%N0,%N1)"},
    {Op::Modulo,        "jet_mod(%N0,%N1)"},
    {Op::Add,           "(%N0+%N1)"},
    {Op::Subtract,      "(%N0-%N1)"},
    {Op::Concatenate,   "(coalesce(%T0,'')||coalesce(%T1,''))"},
};
constexpr Form ConditionForms[] = {
    {Op::Not,          "(NOT %C0)"},
    {Op::Equal,        "(%M0%K=%M1)"},
    {Op::NotEqual,     "(%M0%K<>%M1)"},
    {Op::Less,         "(%M0%K<%M1)"},
    {Op::Greater,      "(%M0%K>%M1)"},
    {Op::LessEqual,    "(%M0%K<=%M1)"},
    {Op::GreaterEqual, "(%M0%K>=%M1)"},
    {Op::Like,         "jet_like(%T0,%T1)"},
    {Op::Between,      "(%M0%K BETWEEN min(%M1%K,%M2) AND max(%M1%K,%M2))"}, // in either order
    {Op::IsNull,       "(%V0 IS NULL)"},
};
// clang-format on

/// Null for what has no form of its own.
const char* formOf(Op op, std::span<const Form> forms)
{
    const auto form = std::ranges::find(forms, op, &Form::op);
    return form == forms.end() ? nullptr : form->text;
}

bool asksForNull(const Expression& call)
{
    return call.op == Op::Call && functionAt(call.function).kind == FunctionKind::IsNull;
}

bool isCondition(const Expression& expression)
{
    const bool joins = expression.op == Op::In || expression.op == Op::And || expression.op == Op::Or;
    return joins || formOf(expression.op, ConditionForms) || asksForNull(expression);
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

/// A date that is compared with a number is its day number; NULL stays what it is.
bool mixesDates(const Expression& expression)
{
    const auto has = [&](bool date) {
        return std::ranges::any_of(expression.arguments, [date](const auto& part) {
            return part->type != Type::Null && (part->type == Type::Date) == date;
        });
    };
    return has(true) && has(false);
}

/// Trim(LCase(x)) or LCase(Trim(x)): what the index for look-ups while typing holds.
const Expression* folded(const Expression& call)
{
    if (call.op != Op::Call || call.arguments.size() != 1 || call.arguments[0]->op != Op::Call)
        return nullptr;
    const auto outer = functionAt(call.function).name;
    const auto inner = functionAt(call.arguments[0]->function).name;
    const bool folds = (outer == u"TRIM" && inner == u"LCASE") || (outer == u"LCASE" && inner == u"TRIM");
    return folds ? call.arguments[0]->arguments[0].get() : nullptr;
}

/// x of Len(x) > 0, which asks whether there is any text.
const Expression* askedForText(const Expression& greater)
{
    const Expression& length = *greater.arguments[0];
    const Expression& limit = *greater.arguments[1];
    const bool counts = length.op == Op::Call && functionAt(length.function).name == u"LEN";
    return counts && limit.op == Op::Constant && limit.constant == Value(0) ? length.arguments[0].get()
                                                                            : nullptr;
}

bool needsConversion(Type from, Type to)
{
    if (to == Type::Boolean) return from != Type::Boolean;
    if (from == to || from == Type::Null || (isText(from) && isText(to))) return false;
    return !(to == Type::Double && isNumber(from) && from != Type::Boolean);
}

} // namespace

void ExpressionWriter::write(const char* form, const Expression& expression)
{
    for (const char* at = form; *at != '\0'; ++at) {
        if (*at != '%') {
            m_out += *at;
            continue;
        }
        const char kind = *++at;
        if (kind == 'K') {
            collation(expression);
            continue;
        }
        const Expression& part = *expression.arguments[static_cast<std::size_t>(*++at - '0')];
        kind == 'M' ? operand(part, mixesDates(expression)) : argument(part, kind);
    }
}

void ExpressionWriter::collation(const Expression& expression)
{
    if (anyText(expression)) m_out += " COLLATE " + collationName();
}

void ExpressionWriter::value(const Expression& expression)
{
    switch (expression.op) {
    case Op::Parameter: m_out += '?' + QByteArray::number(expression.parameter + 1); return;
    case Op::ParameterList:
        m_out += "(SELECT value FROM json_each(?" + QByteArray::number(expression.parameter + 1) + "))";
        return;
    case Op::Constant: return constant(expression.constant);
    case Op::Column: return column(expression);
    case Op::Add:
    case Op::Subtract: return sum(expression);
    default: break;
    }
    if (const char* form = formOf(expression.op, ValueForms)) return write(form, expression);
    if (expression.op == Op::Call && !isCondition(expression)) return call(expression);
    m_out += "(-(";
    condition(expression);
    m_out += "))";
}

void ExpressionWriter::condition(const Expression& expression)
{
    switch (expression.op) {
    case Op::In: return in(expression);
    case Op::And: return chain(expression, " AND ");
    case Op::Or: return chain(expression, " OR ");
    case Op::Greater:
        if (const Expression* asked = askedForText(expression)) return hasText(*asked);
        break;
    default: break;
    }
    if (asksForNull(expression)) return write(formOf(Op::IsNull, ConditionForms), expression);
    if (const char* form = formOf(expression.op, ConditionForms)) return write(form, expression);
    value(expression);
}

void ExpressionWriter::key(const Expression& expression)
{
    const Expression* magnitude = &expression;
    while (magnitude->op == Op::Negate)
        magnitude = magnitude->arguments[0].get();
    // bare, SQLite would take it for the number of a column
    const bool constantKey = magnitude->op == Op::Constant;
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
    // What is computed may be too large for a number of its type; what a column holds was perhaps not written
    // by us.
    const bool computed = expression.op != Op::Column || !field.isEmpty();
    const bool checked =
        isNumber(to) && computed && expression.op != Op::Parameter && expression.op != Op::Constant;
    if (!checked && !needsConversion(expression.type, to)) return value(expression);
    m_out += "jet_convert(";
    value(expression);
    m_out += ',' + QByteArray::number(static_cast<int>(expression.type)) + ',' +
             QByteArray::number(static_cast<int>(to)) + ",'" + field.toUtf8().replace("'", "''") + "')";
}

/// Counting characters in every row would cost more than reading it. Byte by byte, since to the engine's
/// collation blanks alone equal no text.
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
    const bool mixed = mixesDates(expression);
    write("(%M0%K IN ", expression);
    if (arguments[1]->op == Op::ParameterList) {
        value(*arguments[1]);
    } else {
        m_out += '(';
        for (std::size_t i = 1; i < arguments.size(); ++i) {
            if (i > 1) m_out += ',';
            operand(*arguments[i], mixed);
        }
        m_out += ')';
    }
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

void ExpressionWriter::sum(const Expression& expression)
{
    if (isText(expression.type)) return write("(%V0||%V1)", expression);
    const bool isDate = expression.type == Type::Date;
    if (isDate) m_out += "jet_date(";
    write(formOf(expression.op, ValueForms), expression);
    if (isDate) m_out += ')';
}

void ExpressionWriter::call(const Expression& call)
{
    const Function& function = functionAt(call.function);
    if (isAggregate(function)) return aggregate(call);
    if (const Expression* inner = folded(call)) {
        m_out += FoldFunction;
        m_out += '(';
        text(*inner);
        m_out += ')';
        return;
    }
    if (function.kind == FunctionKind::IIf) return choice(call);
    m_out += calledHere(function);
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
    const bool replacesNull = test.op == Op::Call && functionAt(test.function).kind == FunctionKind::IsNull &&
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
    const Function& function = functionAt(call.function);
    if (call.star) {
        m_out += "count(*)";
        return;
    }
    const Expression& operand = *call.arguments[0];
    const bool keyed = function.kind == FunctionKind::First || function.kind == FunctionKind::Last;
    if (keyed && firstRow == FirstRow::ByBareColumn) return value(operand);
    m_out += calledHere(function);
    m_out += '(';
    argument(operand, function.arguments[0]);
    if (keyed) m_out += ",t0._rowid_";
    if (function.kind == FunctionKind::Aggregate && isText(operand.type))
        m_out += " COLLATE " + collationName();
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
