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
                    "31.12. | H1 | Weizen | 2 | Zukauf");
    hof.fuehreAus(
        2024,
        u"INSERT INTO Lagerjournal (Datum, Artikel, LagerortKurzKu) VALUES (#1/1/2024#, 'Gülle', 'H1')"_s);
    const struct {
        const char *artikel, *ort;
        QDate tag;
        double bestand;
    } faelle[] = {
        {"Weizen", "H1", {2024, 2, 29}, 7},
        {"Weizen", "H1", {2024, 3, 1}, 7.1},
        {"Weizen", "H1", {2024, 3, 3}, 7 + 0.1 + 0.2 - 0.3},        // sums are not rounded
        {"WEIZEN ", "h1", {2024, 12, 31}, 7 + 0.1 + 0.2 - 0.3 + 2}, // how it is spelt does not count
        {"Weizen", "H2", {2024, 12, 31}, 50},
        {"Weizen", "H1", {2023, 12, 31}, 1000}, // only its own year
        {"Gülle", "H1", {2024, 12, 31}, 0},     // only empty quantities
        {"Gulle", "H1", {2024, 12, 31}, 0},     // no row
        {"Wei*", "H1", {2024, 12, 31}, 0},      // no pattern
    };
    for (const auto& fall : faelle)
        EXPECT_EQ(BestandErmitteln(QString::fromUtf8(fall.artikel), QString::fromUtf8(fall.ort), fall.tag),
                  fall.bestand)
            << fall.artikel << fall.tag.toString().toStdString();
}
