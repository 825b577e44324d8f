#include "platform/jet/Conversion.h"

#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"

#include <array>
#include <cmath>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

const QDate DayZero(1899, 12, 30);
constexpr double FirstDay = -657435.0;     // the day before 1.1.100
constexpr double DayAfterLast = 2958466.0; // 1.1.10000
constexpr qint64 SecondsOfDay = 86400;

Value wholeNumber(const Value& value, double least, double greatest)
{
    const double number = Round(value.toDouble(), 0);
    if (!(number >= least && number <= greatest)) raise(ErrorNumber::ConversionFailed);
    return Value(static_cast<qint64>(number));
}

Value finite(double number)
{
    if (!std::isfinite(number)) raise(ErrorNumber::Overflow);
    return Value(number);
}

Value truth(const Value& value)
{
    if (value.type() != Type::Text) return Value(value.toBool());
    const QString text = value.toText().trimmed();
    for (const auto word : {u"wahr", u"true", u"ja", u"yes", u"on"})
        if (text.compare(word, Qt::CaseInsensitive) == 0) return Value(true);
    for (const auto word : {u"falsch", u"false", u"nein", u"no", u"off"})
        if (text.compare(word, Qt::CaseInsensitive) == 0) return Value(false);
    return Value(value.toDouble() != 0.0);
}

Value date(const Value& value)
{
    if (value.type() == Type::Date) {
        const QDateTime date = value.toDateTime();
        const int year = date.date().year();
        if (!date.isValid() || year < 100 || year > 9999) raise(ErrorNumber::ConversionFailed);
        return value;
    }
    if (value.type() != Type::Text) {
        const double day = value.toDouble();
        if (!(day > FirstDay && day < DayAfterLast)) raise(ErrorNumber::ConversionFailed);
        return Value(fromDayNumber(day));
    }
    const auto read = readDate(value.toText());
    if (!read) raise(ErrorNumber::ConversionFailed);
    return Value(*read);
}

std::optional<QTime> readTime(QStringView text)
{
    const QTime time = QTime::fromString(text.toString(), text.count(u':') == 2 ? u"h:m:s"_s : u"h:m"_s);
    if (!time.isValid()) return {};
    return time;
}

} // namespace

Value convert(const Value& value, Type to)
{
    if (value.isNull()) return to == Type::Boolean ? Value(false) : value;
    switch (to) {
    case Type::Boolean: return truth(value);
    case Type::Long:
    case Type::Counter: return wholeNumber(value, -2147483648.0, 2147483647.0);
    case Type::Double: return finite(value.toDouble());
    case Type::Date: return date(value);
    case Type::Text:
    case Type::Memo:
        if (value.toText().contains(QChar(0)))
            raise(ErrorNumber::ConversionFailed); // would end the text in the file
        return Value(value.toText());
    case Type::Null: break;
    }
    return value;
}

QString numberText(double value)
{
    if (value == 0.0) return u"0"_s;
    if (!std::isfinite(value))
        return std::isnan(value) ? u"-1,#IND"_s : value > 0 ? u"1,#INF"_s : u"-1,#INF"_s;
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.14e", std::fabs(value)); // d.dddddddddddddde+xx
    const QString text = QString::fromLatin1(buffer.data());
    const int exponent = QStringView(text).mid(17).toInt();
    QString digits = text.left(1) + text.mid(2, 14);
    while (digits.size() > 1 && digits.endsWith(u'0'))
        digits.chop(1);
    const QString sign = value < 0 ? u"-"_s : QString();
    const auto fraction = [](const QString& rest) { return rest.isEmpty() ? QString() : u","_s + rest; };
    if (exponent >= 15 || digits.size() - 1 - exponent > 15) {
        const QString power = QString::number(std::abs(exponent)).rightJustified(2, u'0');
        return sign + digits.left(1) + fraction(digits.mid(1)) + (exponent < 0 ? u"E-"_s : u"E+"_s) + power;
    }
    if (exponent < 0) return sign + u"0,"_s + QString(-exponent - 1, u'0') + digits;
    return sign + digits.left(exponent + 1).leftJustified(exponent + 1, u'0') +
           fraction(digits.mid(exponent + 1));
}

QString dateText(const QDateTime& value)
{
    const QString time = value.time() == QTime(0, 0) ? QString() : value.time().toString(u"HH:mm:ss"_s);
    if (value.date() == DayZero) return value.time().toString(u"HH:mm:ss"_s);
    return value.date().toString(u"dd.MM.yyyy"_s) + (time.isEmpty() ? QString() : u" "_s + time);
}

std::optional<double> readNumber(QStringView text)
{
    QString number = text.trimmed().toString();
    const qsizetype comma = number.indexOf(u',');
    if (comma < 0 ? number.contains(u"..") : number.indexOf(u'.', comma) >= 0) return {};
    if (number.startsWith(u'.')) return {};
    number.remove(u'.');
    number.replace(u',', u'.');
    if (number.contains(u'n', Qt::CaseInsensitive) || number.contains(u'x', Qt::CaseInsensitive))
        return {}; // inf, nan
    bool valid = false;
    const double value = number.toDouble(&valid);
    if (!valid || !std::isfinite(value)) return {};
    return value;
}

std::optional<QDateTime> readDate(QStringView text)
{
    text = text.trimmed();
    const qsizetype blank = text.indexOf(u' ');
    const auto parts = (blank < 0 ? text : text.left(blank)).split(u'.');
    if (parts.size() != 3) return {};
    std::array<int, 3> numbers{};
    for (qsizetype i = 0; i < 3; ++i) {
        bool valid = false;
        numbers[static_cast<std::size_t>(i)] = parts[i].toInt(&valid);
        if (!valid || parts[i].front().isPunct()) return {};
    }
    if (parts[0].size() > 2 || parts[1].size() > 2 || (parts[2].size() != 2 && parts[2].size() != 4))
        return {};
    const int year = parts[2].size() == 2 ? fullYear(numbers[2]) : numbers[2];
    const QDate day(year, numbers[1], numbers[0]);
    if (year < 100 || !day.isValid()) return {};
    const auto time = blank < 0 ? QTime(0, 0) : readTime(text.mid(blank + 1));
    if (!time) return {};
    return QDateTime(day, *time, Qt::UTC);
}

int fullYear(int year)
{
    if (year < 0 || year > 99) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

double dayNumber(const QDateTime& value)
{
    const auto day = static_cast<double>(DayZero.daysTo(value.date()));
    const double time =
        static_cast<double>(QTime(0, 0).secsTo(value.time())) / static_cast<double>(SecondsOfDay);
    return day < 0 ? day - time : day + time;
}

QDateTime fromDayNumber(double day)
{
    if (!(day > FirstDay && day < DayAfterLast)) raise(ErrorNumber::Overflow);
    const double whole = std::trunc(day);
    const auto seconds = std::llround(std::fabs(day - whole) * static_cast<double>(SecondsOfDay));
    const QDateTime start(DayZero.addDays(static_cast<qint64>(whole)), QTime(0, 0), Qt::UTC);
    return start.addSecs(seconds);
}

} // namespace jet
