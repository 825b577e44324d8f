#include "core/SQLTexte.h"

#include "platform/system/Blanks.h"

using namespace Qt::StringLiterals;

namespace {

qsizetype stelle(const QString& quelle, QStringView wort)
{
    return quelle.indexOf(wort, 0, Qt::CaseInsensitive);
}

} // namespace

QString SQLDatum(const QString& datum)
{
    const QString text = sys::trimBlanks(datum);
    return u"#"_s + text.mid(3, 2) + u"/"_s + text.mid(0, 2) + u"/"_s + text.mid(6) + u"#"_s;
}

QString SQLVorWhere(const QString& quelle)
{
    if (const qsizetype where = stelle(quelle, u"where"); where >= 0)
        return sys::trimBlanks(quelle.left(where));
    if (const qsizetype order = stelle(quelle, u"order"); order >= 0)
        return sys::trimBlanks(quelle.left(order));
    return quelle;
}

QString SQLWhereTeil(const QString& quelle)
{
    const qsizetype where = stelle(quelle, u"where");
    if (where < 0) return {};
    const QString teil = quelle.mid(where);
    const qsizetype order = stelle(teil, u"order");
    return order < 0 ? teil : sys::trimBlanks(teil.left(order));
}

QString SQLAbOrder(const QString& quelle)
{
    const qsizetype order = stelle(quelle, u"order");
    return order < 0 ? QString() : u" "_s + quelle.mid(order);
}
