#include "platform/jet/sql/DateLiteral.h"

#include "platform/jet/Conversion.h"

#include <array>

namespace jet::sql {

namespace {

/// Three whole numbers between two equal separators.
std::optional<std::array<int, 3>> threeNumbers(QStringView text, QChar separator)
{
    const auto parts = text.split(separator);
    if (parts.size() != 3) return {};
    std::array<int, 3> numbers{};
    for (qsizetype i = 0; i < 3; ++i) {
        bool valid = false;
        numbers[static_cast<std::size_t>(i)] = parts[i].toInt(&valid);
        if (!valid || !parts[i].front().isDigit()) return {};
    }
    return numbers;
}

std::optional<QDate> readDay(QStringView text)
{
    auto numbers = threeNumbers(text, u'/');
    if (!numbers) numbers = threeNumbers(text, u'-');
    if (!numbers) return {};
    const auto [first, second, third] = *numbers;
    QDate day;
    if (first > 99)
        day = QDate(first, second, third);
    else if (first > 12 && second <= 12)
        day = QDate(fullYear(third), second, first);
    else
        day = QDate(fullYear(third), first, second);
    if (!day.isValid() || day.year() < 100 || day.year() > 9999) return {};
    return day;
}

std::optional<QTime> readTime(QStringView text)
{
    const bool afternoon = text.endsWith(u"PM", Qt::CaseInsensitive);
    const bool halfDays = afternoon || text.endsWith(u"AM", Qt::CaseInsensitive);
    if (halfDays) text = text.chopped(2).trimmed();
    const auto parts = text.split(u':');
    if (parts.size() < 2 || parts.size() > 3) return {};
    std::array<int, 3> numbers{};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        bool valid = false;
        numbers[static_cast<std::size_t>(i)] = parts[i].toInt(&valid);
        if (!valid || !parts[i].front().isDigit()) return {};
    }
    if (halfDays && (numbers[0] < 1 || numbers[0] > 12)) return {};
    const int hour = halfDays ? numbers[0] % 12 + (afternoon ? 12 : 0) : numbers[0];
    const QTime time(hour, numbers[1], numbers[2]);
    if (!time.isValid()) return {};
    return time;
}

} // namespace

std::optional<QDateTime> readDateLiteral(QStringView text)
{
    text = text.trimmed();
    if (text.indexOf(u':') >= 0 && text.indexOf(u'/') < 0 && text.indexOf(u'-') < 0) {
        const auto time = readTime(text);
        if (!time) return {};
        return QDateTime(QDate(1899, 12, 30), *time, Qt::UTC);
    }
    const qsizetype blank = text.indexOf(u' ');
    const auto day = readDay(blank < 0 ? text : text.left(blank));
    const auto time = blank < 0 ? QTime(0, 0) : readTime(text.mid(blank + 1).trimmed());
    if (!day || !time) return {};
    return QDateTime(*day, *time, Qt::UTC);
}

} // namespace jet::sql
