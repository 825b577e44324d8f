#include "overview/inventur/Zaehlpapier.h"

#include "core/Datumstext.h"

using namespace Qt::StringLiterals;

Listenpapier::Auftrag zaehlpapier(const std::vector<Zaehlzeile>& zeilen, QDate tag, bool mitBestand)
{
    Listenpapier::Auftrag auftrag{
        .formular = u"Zaehlliste.rpt"_s,
        .titel = u"Zählliste "_s + datumText(tag),
        .tabelle = u"ZAEHLLISTE"_s,
        .spalten = {{u"Artikel"_s, u"Text(50)"_s},
                    {u"LagerortKurzKu"_s, u"Text(15)"_s},
                    {u"Artikelart"_s, u"Text(25)"_s},
                    {u"Einheit"_s, u"Text(15)"_s},
                    {u"Bestand"_s, u"Double"_s}},
        .zeilen = {},
        .formeln = {{u"Stichdatum"_s, datumText(tag)}, {u"MitBestand"_s, mitBestand ? u"J"_s : u"N"_s}}};
    for (const Zaehlzeile& zeile : zeilen)
        auftrag.zeilen.push_back(
            {zeile.paar.Artikel, zeile.paar.LagerortKurzKu, zeile.Artikelart, zeile.Einheit, zeile.Bestand});
    return auftrag;
}
