#include "platform/jet/Value.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace jet {

bool isNumber(Type type)
{
    return type == Type::Boolean || isWhole(type) || type == Type::Double;
}

bool isWhole(Type type)
{
    return type == Type::Long || type == Type::Counter;
}

bool isText(Type type)
{
    return type == Type::Text || type == Type::Memo;
}

Type Value::type() const
{
    constexpr Type types[] = {Type::Null, Type::Boolean, Type::Long, Type::Double, Type::Date, Type::Text};
    return types[m_value.index()];
}

double Value::toDouble() const
{
    switch (type()) {
    case Type::Boolean: return std::get<bool>(m_value) ? -1.0 : 0.0;
    case Type::Long: return static_cast<double>(std::get<qint64>(m_value));
    case Type::Double: return std::get<double>(m_value);
    case Type::Date: return dayNumber(std::get<QDateTime>(m_value));
    case Type::Text: {
        const auto number = readNumber(std::get<QString>(m_value));
        if (!number) raise(ErrorNumber::ConversionFailed);
        return *number;
    }
    default: return 0.0;
    }
}

qint64 Value::toLong() const
{
    if (const auto* whole = std::get_if<qint64>(&m_value)) return *whole;
    const double number = Round(toDouble(), 0);
    if (!(number >= -2147483648.0 && number <= 2147483647.0)) raise(ErrorNumber::Overflow);
    return static_cast<qint64>(number);
}

bool Value::toBool() const
{
    if (const auto* truth = std::get_if<bool>(&m_value)) return *truth;
    if (type() == Type::Text) return convert(*this, Type::Boolean).toBool();
    return toDouble() != 0.0;
}

QString Value::toText() const
{
    switch (type()) {
    case Type::Boolean: return std::get<bool>(m_value) ? u"-1"_s : u"0"_s;
    case Type::Long: return QString::number(std::get<qint64>(m_value));
    case Type::Double: return numberText(std::get<double>(m_value));
    case Type::Date: return dateText(std::get<QDateTime>(m_value));
    case Type::Text: return std::get<QString>(m_value);
    default: return {};
    }
}

QDateTime Value::toDateTime() const
{
    if (isNull()) return {};
    if (const auto* date = std::get_if<QDateTime>(&m_value)) return *date;
    return std::get<QDateTime>(convert(*this, Type::Date).m_value);
}

} // namespace jet
