#include "platform/jet/NumberFormat.h"

#include "platform/jet/Conversion.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>

namespace jet {

namespace {

constexpr int SignificantDigits = 15;
constexpr int GroupSize = 3;
constexpr double LargestWritten = 1e15; // beyond it the last digits are not those of the number

/// The digits of a magnitude rounded to so many decimals, half up, without the point.
QByteArray roundedDigits(double magnitude, int decimals)
{
    const int before = magnitude < 1 ? 0 : static_cast<int>(std::log10(magnitude)) + 1;
    QByteArray digits =
        QByteArray::number(magnitude, 'f', std::max(SignificantDigits - before, decimals + 1));
    const qsizetype point = digits.indexOf('.');
    digits.remove(point, 1);
    const bool up = digits[point + decimals] >= '5';
    digits.truncate(point + decimals);
    qsizetype i = digits.size();
    for (bool carry = up; carry && i > 0;) {
        --i;
        carry = digits[i] == '9';
        digits[i] = carry ? '0' : static_cast<char>(digits[i] + 1);
        if (carry && i == 0) digits.prepend('1');
    }
    return digits;
}

} // namespace

QString formatted(double value, QStringView format)
{
    if (!(std::fabs(value) <= LargestWritten)) return numberText(value);
    const qsizetype point = format.indexOf(u'.');
    const QStringView whole = point < 0 ? format : format.left(point);
    qsizetype decimals = point < 0 ? 0 : format.size() - point - 1;
    const qsizetype always = decimals == 0 ? 0 : format.mid(point).count(u'0');
    QByteArray digits = roundedDigits(std::fabs(value), static_cast<int>(decimals));
    const bool isZero = std::all_of(digits.begin(), digits.end(), [](char digit) { return digit == '0'; });
    for (; decimals > always && digits.endsWith('0'); --decimals)
        digits.chop(1);

    QByteArray text = digits.left(digits.size() - decimals);
    text = text.rightJustified(whole.count(u'0'), '0');
    if (whole.contains(u','))
        for (qsizetype i = text.size() - GroupSize; i > 0; i -= GroupSize)
            text.insert(i, '.');
    if (decimals > 0) text += ',' + digits.right(decimals);
    return QString::fromLatin1(value < 0 && !isZero ? '-' + text : text);
}

} // namespace jet
