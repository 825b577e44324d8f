#include "core/farm/umbenennung/Umbenennung.h"

#include "core/farm/Betriebe.h"
#include "platform/jet/TextOrder.h"

QStringView journalspalte(Namensart was)
{
    switch (was) {
    case Namensart::Artikel: return u"Artikel";
    case Namensart::Lagerort: return u"LagerortKurzKu";
    case Namensart::Partner: return u"Uberstallt_alt";
    }
    return {};
}

bool Umbenennung::nurSchreibweise() const
{
    return jet::compareTexts(alt, neu) == 0;
}

QStringList Umbenennungsort::betriebe(const Umbenennung& umbenennung) const
{
    return umbenennung.betrieb.isEmpty() ? ::betriebe(datenverzeichnis) : QStringList(umbenennung.betrieb);
}
