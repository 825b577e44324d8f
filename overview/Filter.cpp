#include "overview/Filter.h"

#include "core/Datumstext.h"
#include "core/SQLTexte.h"

using namespace Qt::StringLiterals;

QString eingrenzung(const Filter& filter)
{
    QString text =
        u" WHERE ARTIKEL <> 'xx'"_s; // no article is called so: what follows can always begin with AND
    if (filter.Lagerort != AlleLagerorte) text += u" AND LAGERORTKURZKU = '"_s + filter.Lagerort + u"'"_s;
    if (filter.Artikelgruppe != AlleArtikelgruppen)
        text += u" AND ARTIKELART = '"_s + filter.Artikelgruppe + u"'"_s;
    if (filter.Artikel != AlleArtikel) text += u" AND ARTIKEL = '"_s + filter.Artikel + u"'"_s;
    if (filter.von.isValid() && filter.bis.isValid())
        text += u" AND DATUM >= "_s + SQLDatum(datumText(filter.von)) + u" AND DATUM <= "_s +
                SQLDatum(datumText(filter.bis));
    return text;
}

QString bestandsquelle(const QString& eingrenzung, const Bestandsansicht& ansicht, const QString& ordnung)
{
    // Each quantity is rounded before it is told apart into receipt and issue; whether a line is 0 is asked
    // of the sum as it is, so a rest of 0.00001 keeps its line.
    const QString summen = u"Select Sum(IIF(Round(IIF(Isnull(Menge),0,Menge),4) < 0, "
                           u"-Round(IIF(Isnull(Menge),0,Menge),4),0)) as Abgang,"
                           u" Sum(IIF(Round(IIF(Isnull(Menge),0,Menge),4) > 0, "
                           u"Round(IIF(Isnull(Menge),0,Menge),4),0)) as Zugang,"
                           u" Sum(Round(IIF(Isnull(Menge),0,Menge),4)) as Bestand, Artikel,  "_s;
    const QString rest =
        u"LagerortKurzku, Artikelart, Einheit, First(Untergruppe) as UGruppe FROM LAGERJOURNAL "_s;
    const QString having = ansicht.ohneNull ? u"HAVING Sum(Menge) <> 0"_s : QString();
    if (ansicht.inSumme)
        return summen + u"'x' as "_s + rest + u" "_s + eingrenzung +
               u" GROUP BY ARTIKEL, Artikelart, Einheit  "_s + having + u" "_s + ordnung;
    return summen + rest + eingrenzung + u" GROUP BY ARTIKEL,  LagerortKurzku, Artikelart, Einheit  "_s +
           having + u" "_s + ordnung;
}
