#include "platform/controls/NumberEntry.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

TypedNumber readTyped(QStringView text)
{
    using enum TypedNumber::State;
    static const QRegularExpression possible(u"^-?[0-9.]*(,[0-9]{0,10})?$"_s);
    static const QRegularExpression complete(u"^-?([0-9]*|[0-9]{1,3}(\\.[0-9]{3})+)(,[0-9]*)?$"_s);
    constexpr qsizetype MostWholeDigits = 12;
    const QString typed = text.trimmed().toString();
    if (typed.isEmpty()) return {Complete, 0};
    if (!possible.match(typed).hasMatch()) return {};
    QString number = typed;
    number.remove(u'.').replace(u',', u'.');
    const QString whole = number.section(u'.', 0, 0).remove(u'-');
    if (whole.size() > MostWholeDigits) return {};
    bool isNumber = false;
    const double value = number.toDouble(&isNumber);
    if (!isNumber || !complete.match(typed).hasMatch()) return {Unfinished, 0};
    return {Complete, value};
}

double withoutDust(double value)
{
    if (!std::isfinite(value)) return 0;
    constexpr int KeptDecimals = 10;
    return QString::number(value, 'f', KeptDecimals).toDouble() + 0.0; // + 0.0: no -0
}
