#include "overview/FremdeBuchung.h"

using namespace Qt::StringLiterals;

bool istFremdeBuchung(const jet::Recordset& zeile)
{
    return zeile[u"BEErfassungsnummer"].toDouble() > 0; // NULL counts as 0
}

QString fremdeBuchung(const QString& nurDort)
{
    return u"Diese Buchung wurde mit einem angeschlossenen ZAB - Programm erfasst"
           u" (z.B. ZAB - Schollwart, ZAB - Quittor, ZAB - Herdon)\r\r"_s +
           nurDort;
}
