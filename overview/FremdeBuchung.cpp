#include "overview/FremdeBuchung.h"

#include "platform/system/Messages.h"

using namespace Qt::StringLiterals;

bool istFremdeBuchung(const jet::Recordset& zeile, const QString& nurDort)
{
    if (zeile[u"BEErfassungsnummer"].toDouble() <= 0) return false; // NULL counts as 0
    sys::critical(u"Diese Buchung wurde mit einem angeschlossenen ZAB - Programm erfasst"
                  u" (z.B. ZAB - Schollwart, ZAB - Quittor, ZAB - Herdon)\r\r"_s +
                  nurDort);
    return true;
}
