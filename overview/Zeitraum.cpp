#include "overview/Zeitraum.h"

#include "platform/controls/DateCombo.h"
#include "platform/controls/FieldMark.h"

using namespace Qt::StringLiterals;

void markiereZeitraum(DateCombo& VonDatum, DateCombo& Buchdatum)
{
    const QDate von = VonDatum.Date();
    const QDate bis = Buchdatum.Date();
    for (DateCombo* const feld : {&VonDatum, &Buchdatum}) {
        QString grund;
        if (feld->Text().trimmed().isEmpty())
            grund = u"Hier fehlt ein Datum. Deshalb wird nach dem Zeitraum nicht eingegrenzt."_s;
        else if (!feld->Date().isValid())
            grund = u"Das Datum '"_s + feld->Text() +
                    u"' gibt es nicht. Deshalb wird nach dem Zeitraum nicht eingegrenzt."_s;
        else if (bis.isValid() && bis < von)
            grund = u"'Bis Datum' liegt vor 'Von Datum'. Deshalb sind die Ansichten leer."_s;
        markField(*feld, grund);
    }
}
