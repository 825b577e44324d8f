#include "core/farm/stammdaten/Stammliste.h"

using namespace Qt::StringLiterals;

Stammliste lagerorte()
{
    return {.was = u"Lagerort"_s,
            .art = Dateiart::Anlagen,
            .tabelle = u"Objekte"_s,
            .auswahl = u" WHERE Objektart = 'Lager' OR Objektart = 'Düngersammelstelle' ORDER BY KurzKu"_s,
            .spalten = {{u"Kürzel"_s, u"KurzKu"}, {u"Name"_s, u"Name"}},
            .namen = {u"KurzKu"},
            .journalspalte = u"LagerortKurzKu",
            .sperre = u"Anzeigen",
            .gesperrt = false,
            .vorgaben = {{u"Objektart", u"Lager"_s}, {u"Anzeigen", true}}};
}

Stammliste artikel(const Artikelart& art)
{
    return {.was = u"Artikel"_s,
            .tabelle = art.tabelle.toString(),
            .auswahl = u" ORDER BY NAME"_s,
            .spalten = {{u"Name"_s, u"NAME"},
                        {u"Einheit"_s, u"Einheit"},
                        {u"Preis"_s, u"Preis"},
                        {u"Preisfaktor"_s, u"Preisfaktor"},
                        {u"Untergruppe"_s, u"Untergruppe"}},
            .namen = {u"NAME"},
            .journalspalte = u"Artikel",
            .sperre = u"Sperre",
            .vorgaben = {{u"Preisfaktor", u"1"_s}}};
}

Stammliste geschaeftspartner()
{
    return {.was = u"Geschäftspartner"_s,
            .tabelle = u"HANDLER"_s,
            .auswahl = u" ORDER BY KurzKu, NAME"_s,
            .spalten = {{u"Kürzel"_s, u"KurzKu"},
                        {u"Name"_s, u"NAME"},
                        {u"Vorname"_s, u"VORNAME"},
                        {u"Straße"_s, u"Strasse"},
                        {u"PLZ"_s, u"PLZ"},
                        {u"Ort"_s, u"Ort"}},
            .namen = {u"KurzKu", u"NAME"},
            .journalspalte = u"Uberstallt_alt",
            .sperre = u"SPERRE"};
}

/// Parallel imports share a name and differ by their number.
Stammliste registermittel()
{
    return {.was = u"Mittel"_s,
            .art = Dateiart::ZABStammdaten,
            .tabelle = u"PFLANZENSCHUTZMITTEL"_s,
            .auswahl = u" ORDER BY NAME, Regnr"_s,
            .spalten = {{u"Name"_s, u"NAME"},
                        {u"Gruppe"_s, u"Gruppe"},
                        {u"Giftigkeit"_s, u"Giftig"},
                        {u"Registernummer"_s, u"Regnr"}},
            .namen = {u"NAME", u"Regnr"},
            .alleNamen = true};
}

/// So do numbers, of which several products may live.
Stammliste registereintraege()
{
    return {.was = u"Registereintrag"_s,
            .art = Dateiart::ZABStammdaten,
            .tabelle = u"REGISTER"_s,
            .auswahl = u" ORDER BY Regnr, BEZEICHNUNG, RegNrAlt"_s,
            .spalten = {{u"Registernummer"_s, u"Regnr"},
                        {u"Frühere Nummer"_s, u"RegNrAlt"},
                        {u"Bezeichnung"_s, u"BEZEICHNUNG"},
                        {u"Aufbrauchsfrist"_s, u"Aufbrauchsfrist"}},
            .namen = {u"Regnr", u"BEZEICHNUNG"},
            .alleNamen = true};
}

QStringList Stammliste::schluessel(const std::function<QString(QStringView)>& text) const
{
    QStringList alle;
    for (const QStringView feld : namen) {
        const QString dieser = text(feld);
        if (alleNamen)
            alle.append(dieser);
        else if (!dieser.isEmpty())
            return {dieser};
    }
    return alle;
}
