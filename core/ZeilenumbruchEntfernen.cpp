#include "core/ZeilenumbruchEntfernen.h"

#include "platform/system/Blanks.h"
#include "platform/system/ErrorReport.h"

QString ZeilenumbruchEntfernen(const QString& text)
{
    QString zeile;
    sys::underErrorReport({[&] { // a text beyond memory is reported like every other fault of a print
        zeile = text;
        zeile.replace(u'\r', u' ').replace(u'\n', u' ');
        zeile = sys::trimBlanks(zeile);
    }});
    return zeile;
}
