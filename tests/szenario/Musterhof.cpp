#include "tests/szenario/Musterhof.h"

using namespace Qt::StringLiterals;

namespace {

void fuelle(const QString& datei, const QString& kennwort, std::initializer_list<QString> zeilen)
{
    const auto ziel = jet::engine().OpenDatabase(datei, u";pwd="_s + kennwort);
    for (const QString& zeile : zeilen)
        ziel->Execute(u"INSERT INTO "_s + zeile);
}

} // namespace

Musterhof::Musterhof()
{
    bucht(2023, "30.06. | H1 | Weizen | 120,5 | Ernte");
    bucht(2024, "05.03. | H1 | Weizen | 100 | Zukauf\n"
                "05.04. | H2 | Weizen | 50 | Zukauf\n"
                "06.05. | H1 | Weizen | -20 | Verkauf\n"
                "07.05. | H2 | Diesel | 1500 | Zukauf\n"
                "08.05. | H2 | Diesel | -1500 | Eigenverbrauch\n"
                "09.05. | H1 | Hafer | 0,00001 | Zukauf");
    fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikelart = 'Pflanzliche Erzeugnisse', Einheit = 'dt'"_s);
    fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikelart = 'Treib- und Brennstoffe', Einheit = 'l'"
                    u" WHERE Artikel = 'Diesel'"_s);
    fuelle(ort().anlagen() + u"/Anlagen.mdb"_s, u"volmira"_s,
           {u"Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ('Halle Nord', 'H1', 'Lager', True)"_s,
            u"Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ('Halle Süd', 'H2', 'Düngersammelstelle',"
            u" True)"_s,
            u"Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ('Alter Speicher', 'SP', 'Lager', False)"_s,
            u"Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ('Stall', 'ST', 'Stall', True)"_s});
    fuelle(
        ort().daten() + u"/Grundstamm.mdb"_s, u"RT-58KX"_s,
        {u"Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre)"
         u" VALUES ('Roggen', 'kg', 42, '100', False)"_s,
         u"Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre)"
         u" VALUES ('Altroggen', 'kg', 1, '1', True)"_s,
         u"Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre)"
         u" VALUES ('Bauer''s Mix', 'kg', 7, '1', False)"_s,
         u"Treibstoffe (NAME, Einheit, Preis, Preisfaktor, Sperre) VALUES ('Diesel', 'l', 142, '0', False)"_s,
         u"HANDLER (KurzKu, NAME, SPERRE) VALUES ('HUBER', 'Huber Anna', False)"_s,
         u"HANDLER (KurzKu, NAME, SPERRE) VALUES ('', 'Maier Kurt', False)"_s,
         u"HANDLER (KurzKu, NAME, SPERRE) VALUES (NULL, 'Landhandel Obermoos', False)"_s});
    Modulzustand& zustand = modulzustand();
    zustand.Lagerpasswort = u";pwd=quenlor"_s;
    zustand.Betriebsname = u"Lindenhof"_s;
    zustand.Betriebsadresse = u"Lindenau 3"_s;
    zustand.Anlagenverzeichnis = ort().anlagen();
    jet::engine().release();
}
