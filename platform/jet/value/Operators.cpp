#include "platform/jet/value/Operators.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/value/Pattern.h"
#include "platform/jet/value/WholeNumber.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

Value like(const Arguments& a)
{
    return Value(qint64{matches(a.text(0), a.text(1)) ? 1 : 0});
}

Value divide(const Arguments& a)
{
    if (a.number(1) == 0.0) raise(ErrorNumber::DivisionByZero);
    return Value(a.number(0) / a.number(1));
}

/// Both operands become whole numbers first.
Value wholeQuotient(const Arguments& a)
{
    const double divisor = fourBytes(a.number(1));
    if (divisor == 0.0) raise(ErrorNumber::DivisionByZero);
    return Value(static_cast<qint64>(std::trunc(fourBytes(a.number(0)) / divisor)));
}

Value modulo(const Arguments& a)
{
    const double divisor = fourBytes(a.number(1));
    if (divisor == 0.0) raise(ErrorNumber::DivisionByZero);
    return Value(static_cast<qint64>(std::fmod(fourBytes(a.number(0)), divisor)));
}

Value power(const Arguments& a)
{
    if (a.number(0) == 0.0 && a.number(1) < 0.0) raise(ErrorNumber::DivisionByZero);
    const double result = std::pow(a.number(0), a.number(1));
    if (std::isnan(result)) raise(ErrorNumber::InvalidArgument);
    return Value(result);
}

Value dayNumberOf(const Arguments& a)
{
    return Value(dayNumber(a.date(0)));
}

Value dateOf(const Arguments& a)
{
    return Value(fromDayNumber(a.number(0)));
}

/// A column of another program's may hold other numbers, which read as True. They are not handed on.
Value converted(const Arguments& a)
{
    const auto from = static_cast<Type>(static_cast<int>(a.number(1)));
    const auto to = static_cast<Type>(static_cast<int>(a.number(2)));
    const bool isTruth = from == Type::Boolean && to == Type::Boolean;
    if (isTruth && a.number(0) != 0.0 && a.number(0) != -1.0) throw noTruthValue({});
    return convert(a.value(0, from), to);
}

/// value, type it has, type it gets, name of the field that gets it or '': NULL too has an answer, since a
/// truth value is never NULL.
Value convertedFor(const Arguments& a)
{
    try {
        return converted(a);
    } catch (const Error& error) {
        const QString field = a.text(3);
        throw field.isEmpty() ? error : named(error, u"Feld"_s, field);
    }
}

// clang-format off
constexpr Operator Operators[] = {
    {"like", 2, {like}},            {"div", 2, {divide}}, {"idiv", 2, {wholeQuotient}}, {"mod", 2, {modulo}},
    {"pow", 2, {power}},            {"daynumber", 1, {dayNumberOf}}, {"date", 1, {dateOf}},
    {"convert", 4, {convertedFor, true}},
};
// clang-format on

} // namespace

std::span<const Operator> operators()
{
    return Operators;
}

} // namespace jet
