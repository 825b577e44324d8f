#include "platform/controls/DateFormat.h"

#include "platform/jet/Conversion.h"

using namespace Qt::StringLiterals;

QString formatDate(QDate date)
{
    return date.toString(u"dd.MM.yyyy");
}

QDate readTypedDate(QStringView text, int year)
{
    QString full = text.trimmed().toString();
    if (full.contains(u' ')) return {}; // no time of day
    if (full.endsWith(u'.')) full.chop(1);
    if (full.count(u'.') == 1) full += u'.' + QString::number(year).rightJustified(4, u'0');
    const auto date = jet::readDate(full);
    return date ? date->date() : QDate();
}
