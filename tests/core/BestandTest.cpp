#include "core/Bestand.h"

#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

using namespace Qt::StringLiterals;

TEST(Bestand, IstDieSummeDesJahresBisZumTag)
{
    const Testbetrieb hof;
    hof.bucht(2023, "31.12. | H1 | Weizen | 1000 | Ernte");
    hof.bucht(2024, "01.01. | H1 | Weizen | 7 | Anfangsbestand\n"
                    "01.03. | H1 | Weizen | 0,1 | Zukauf\n"
                    "02.03. | H1 | Weizen | 0,2 | Zukauf\n"
                    "03.03. | H1 | weizen  | -0,3 | Verkauf\n"
                    "04.03. | H2 | Weizen | 50 | Zukauf\n"
                    "05.03. | H1 | Weizenkleie | 9 | Zukauf\n"
                    "31.12. | H1 | Weizen | 2 | Zukauf\n"
                    "01.02. | H1 | Gülle | 5 | Zukauf\n"
                    "01.02. | H1 | Gulle | 6 | Zukauf");
    hof.fuehreAus(2024,
                  u"INSERT INTO Lagerjournal (Datum, Artikel, LagerortKurzKu) VALUES (#1/1/2024#, 'Hafer', 'H1')"_s);
    struct Fall {
        const char* name;
        QString artikel, ort;
        QDate tag;
        double bestand;
    };
    const Fall faelle[] = {
        {"der Tag selbst zählt mit", u"Weizen"_s, u"H1"_s, QDate(2024, 3, 1), 7.1},
        {"der Tag davor nicht", u"Weizen"_s, u"H1"_s, QDate(2024, 2, 29), 7},
        {"Summen werden nicht gerundet", u"Weizen"_s, u"H1"_s, QDate(2024, 3, 3), 7 + 0.1 + 0.2 - 0.3},
        {"Großschreibung und Leerzeichen am Ende zählen nicht", u"WEIZEN "_s, u"h1"_s, QDate(2024, 12, 31),
         7 + 0.1 + 0.2 - 0.3 + 2},
        {"am Anfang zählen sie", u" Weizen"_s, u"H1"_s, QDate(2024, 12, 31), 0},
        {"Umlaute zählen", u"Gülle"_s, u"H1"_s, QDate(2024, 12, 31), 5},
        {"ein anderer Lagerort", u"Weizen"_s, u"H2"_s, QDate(2024, 12, 31), 50},
        {"nur das eigene Jahr", u"Weizen"_s, u"H1"_s, QDate(2023, 12, 31), 1000},
        {"lauter leere Mengen", u"Hafer"_s, u"H1"_s, QDate(2024, 12, 31), 0},
        {"keine Zeile", u"Roggen"_s, u"H1"_s, QDate(2024, 12, 31), 0},
        {"kein Platzhalter", u"Wei*"_s, u"H1"_s, QDate(2024, 12, 31), 0},
    };
    for (const Fall& fall : faelle)
        EXPECT_EQ(BestandErmitteln(fall.artikel, fall.ort, fall.tag), fall.bestand) << fall.name;
}
