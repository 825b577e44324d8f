#include "core/farm/Namenswarnung.h"

using namespace Qt::StringLiterals;

QString namenswarnung(const QString& name)
{
    if (name.contains(u'\''))
        return u"'"_s + name +
               u"' enthält einen Apostroph: Listen, die danach eingegrenzt werden, melden einen Fehler."_s;
    for (const QString& wort : {u"order"_s, u"where"_s})
        if (name.contains(wort, Qt::CaseInsensitive))
            return u"'"_s + name + u"' enthält \""_s + wort +
                   u"\": Listen, die danach eingegrenzt werden, melden einen Fehler."_s;
    return {};
}

QString artikelwarnung(const QString& name)
{
    if (name.compare(u"xx", Qt::CaseInsensitive) == 0)
        return u"Den Artikel '"_s + name + u"' blenden alle Ansichten aus."_s;
    return namenswarnung(name);
}
