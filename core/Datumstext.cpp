#include "core/Datumstext.h"

using namespace Qt::StringLiterals;

QString datumText(QDate tag)
{
    return tag.toString(u"dd.MM.yyyy"_s);
}
