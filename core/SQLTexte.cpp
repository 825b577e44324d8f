#include "core/SQLTexte.h"

#include "core/Trim.h"

using namespace Qt::StringLiterals;

namespace {

qsizetype stelle(const QString& quelle, QStringView wort)
{
    return quelle.indexOf(wort, 0, Qt::CaseInsensitive);
}

} // namespace

QString SQLDatum(const QString& datum)
{
    const QString text = Trim(datum);
    return u"#"_s + text.mid(3, 2) + u"/"_s + text.mid(0, 2) + u"/"_s + text.mid(6) + u"#"_s;
}

QString SQLVorWhere(const QString& quelle)
{
    if (const qsizetype where = stelle(quelle, u"where"); where >= 0) return Trim(quelle.left(where));
    if (const qsizetype order = stelle(quelle, u"order"); order >= 0) return Trim(quelle.left(order));
    return quelle;
}

QString SQLWhereTeil(const QString& quelle)
{
    const qsizetype where = stelle(quelle, u"where");
    if (where < 0) return {};
    const QString teil = quelle.mid(where);
    const qsizetype order = stelle(teil, u"order");
    return order < 0 ? teil : Trim(teil.left(order));
}

QString SQLAbOrder(const QString& quelle)
{
    const qsizetype order = stelle(quelle, u"order");
    return order < 0 ? QString() : u" "_s + quelle.mid(order);
}
