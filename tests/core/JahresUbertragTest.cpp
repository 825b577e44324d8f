#include "core/JahresUbertrag.h"

#include "core/Bestand.h"
#include "core/Modulzustand.h"
#include "platform/system/Files.h"
#include "platform/system/Settings.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QDir>

using namespace Qt::StringLiterals;

TEST(JahresUbertrag, TraegtDenSchlussbestandVor)
{
    struct Fall {
        const char *name, *alt, *neu, *danach;
    };
    // clang-format off
    const Fall faelle[] = { // Datum | Ort | Artikel | Menge | Buchungsart
        {"Zu- und Abgang", "30.06. | H1 | Weizen | 120 | Ernte\n"
                           "31.12. | H1 | Weizen | -20 | Verkauf", "", "01.01. | H1 | Weizen | 100 | Anfangsbestand"},
        {"je Artikel und Lagerort in ihrer Reihenfolge",
            "01.02. | H2 | Weizen | 3 | Zukauf\n"
            "01.02. | H1 | Weizen | 2 | Zukauf\n"
            "01.02. | H1 | Äpfel | -1 | Verkauf", "",
            "01.01. | H1 | Äpfel | -1 | Anfangsbestand\n"
            "01.01. | H1 | Weizen | 2 | Anfangsbestand\n"
            "01.01. | H2 | Weizen | 3 | Anfangsbestand"},
        {"ein Rest unter vier Stellen legt keine Zeile an", "05.05. | H1 | Weizen | 0,00004 | Zukauf", "", ""},
        {"einer vorhandenen Zeile wird er ungerundet gesetzt", "05.05. | H1 | Weizen | 0,00004 | Zukauf",
            "01.01. | H1 | Weizen | 5 | Anfangsbestand", "01.01. | H1 | Weizen | 0,00004 | Anfangsbestand"},
        {"auch die Null", "05.05. | H1 | Weizen | 4 | Zukauf\n"
                          "06.05. | H1 | Weizen | -4 | Verkauf",
            "01.01. | H1 | Weizen | 5 | Anfangsbestand", "01.01. | H1 | Weizen | 0 | Anfangsbestand"},
        {"nur der ersten, ihr Tag bleibt", "05.05. | H1 | Weizen | 4 | Zukauf",
            "03.02. | h1 | WEIZEN | 5 | Anfangsbestand\n"
            "01.01. | H1 | Weizen | 6 | Anfangsbestand",
            "03.02. | h1 | WEIZEN | 4 | Anfangsbestand\n"
            "01.01. | H1 | Weizen | 6 | Anfangsbestand"},
        {"andere Zeilen bleiben", "05.05. | H1 | Weizen | 4 | Zukauf",
            "01.01. | H1 | Weizen | 5 | Zukauf\n"
            "01.01. | H2 | Weizen | 6 | Anfangsbestand\n"
            "01.01. | H1 | Mais | 7 | Anfangsbestand",
            "01.01. | H1 | Weizen | 5 | Zukauf\n"
            "01.01. | H2 | Weizen | 6 | Anfangsbestand\n"
            "01.01. | H1 | Mais | 7 | Anfangsbestand\n"
            "01.01. | H1 | Weizen | 4 | Anfangsbestand"},
        {"ohne Artikel oder Lagerort wird nichts weitergeschrieben", "05.05. | NULL | Weizen | 4 | Zukauf\n"
                                                                   "05.05. | H1 | NULL | 4 | Zukauf\n"
                                                                   "05.05. | H1 | Mais | 4 | Zukauf", "",
            "01.01. | H1 | Mais | 4 | Anfangsbestand"},
        {"Schreibweisen eines Artikels sind einer", "05.05. | H1 | Weizen | 4 | Zukauf\n"
                                                    "05.05. | H1 | weizen  | 3 | Zukauf", "",
            "01.01. | H1 | Weizen | 7 | Anfangsbestand"},
        {"ein leeres Vorjahr", "", "01.01. | H1 | Weizen | 5 | Anfangsbestand",
            "01.01. | H1 | Weizen | 5 | Anfangsbestand"},
    };
    // clang-format on
    for (const Fall& fall : faelle) {
        SCOPED_TRACE(fall.name);
        const Testbetrieb hof(QDate(2024, 6, 1));
        hof.bucht(2024, fall.alt);
        hof.bucht(2025, fall.neu);
        for (const int lauf : {1, 2}) { // a second run must change nothing
            ASSERT_TRUE(JahresUbertrag()) << lauf;
            EXPECT_EQ(hof.journal(2025), zeilen(fall.danach)) << lauf;
        }
        EXPECT_EQ(hof.journal(2024), zeilen(fall.alt));
    }
}

TEST(JahresUbertrag, EineNeueZeileWirdGerundetEineVorhandeneNicht)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    hof.bucht(2024, "05.05. | H1 | Weizen | 1,00005 | Zukauf\n"
                    "05.05. | H2 | Weizen | 1,23456 | Zukauf");
    hof.bucht(2025, "");
    ASSERT_TRUE(JahresUbertrag());
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Weizen | 1 | Anfangsbestand\n"
                                        "01.01. | H2 | Weizen | 1,2346 | Anfangsbestand"));
    ASSERT_TRUE(JahresUbertrag()); // now the rows exist
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Weizen | 1,00005 | Anfangsbestand\n"
                                        "01.01. | H2 | Weizen | 1,23456 | Anfangsbestand"));
}

TEST(JahresUbertrag, EineNeueZeileNimmtDieAngabenDesArtikelsMit)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    for (const QString& werte :
         {u"(#2/1/2024#, 'Weizen', 'Pflanzliche Erzeugnisse', 'H1', 10, 3.5, NULL, 'kg', 'Zukauf', 77)"_s,
          u"(#1/1/2024#, 'Weizen', 'Futtermittel', 'H1', 20, NULL, '100', 't', 'Zukauf', 78)"_s, // booked last
          u"(#3/1/2024#, 'Weizen', 'Futtermittel', 'H1', 30, 4.5, '100', 't', 'Zukauf', 79)"_s,
          u"(#3/1/2024#, 'Mais', NULL, 'H1', 5, NULL, NULL, NULL, 'Zukauf', 80)"_s})
        hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Preis, "
                            u"Preisfaktor, Einheit, Buchungsart, BuchungsID) VALUES "_s +
                                werte);
    hof.bucht(2025, "");
    ASSERT_TRUE(JahresUbertrag());
    EXPECT_EQ(hof.zeigt(2025, u"SELECT * FROM LAGERJOURNAL ORDER BY ID"_s),
              (QStringList{u"1 | 01.01.2025 | Mais | NULL | H1 | 5 | NULL | NULL | NULL | NULL | Anfangsbestand | 0 | "
                           u"NULL | NULL | NULL | NULL | NULL | NULL"_s,
                           u"2 | 01.01.2025 | Weizen | Pflanzliche Erzeugnisse | H1 | 60 | NULL | 4 | NULL | kg | "
                           u"Anfangsbestand | 0 | NULL | NULL | NULL | NULL | NULL | NULL"_s}));
}

TEST(JahresUbertrag, GehtVomStichjahrAnJahrFuerJahr)
{
    Testbetrieb hof(QDate(2024, 6, 1));
    hof.bucht(2022, "05.05. | H1 | Weizen | 1 | Zukauf");
    hof.bucht(2023, "05.05. | H1 | Weizen | 10 | Zukauf");
    hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
    hof.bucht(2026, "05.05. | H1 | Weizen | 1000 | Zukauf"); // 2025 is missing: 2024 feeds 2026
    hof.bucht(2027, "");
    ASSERT_TRUE(JahresUbertrag());
    EXPECT_EQ(hof.journal(2023), zeilen("05.05. | H1 | Weizen | 10 | Zukauf"));
    EXPECT_EQ(hof.journal(2024), zeilen("05.05. | H1 | Weizen | 100 | Zukauf"));
    EXPECT_EQ(hof.journal(2026), zeilen("05.05. | H1 | Weizen | 1000 | Zukauf\n"
                                        "01.01. | H1 | Weizen | 100 | Anfangsbestand"));
    EXPECT_EQ(hof.journal(2027), zeilen("01.01. | H1 | Weizen | 1100 | Anfangsbestand"));

    modulzustand().Stichdatum = nulldatum(); // never set: all years
    ASSERT_TRUE(JahresUbertrag());
    EXPECT_EQ(hof.journal(2027), zeilen("01.01. | H1 | Weizen | 1111 | Anfangsbestand"));

    modulzustand().Stichdatum = QDate(2028, 1, 1);
    EXPECT_FALSE(JahresUbertrag());
}

TEST(JahresUbertrag, EinJahrKannDieBestaendeDesVorjahresAblehnen)
{
    const std::pair<QString, bool> faelle[] = {
        {u""_s, true},
        {u"INSERT INTO Einstellungen (OhneVorjahr) VALUES (True)"_s, false},
        {u"DROP TABLE Einstellungen"_s, true}, // an old file
        {u"DROP TABLE Einstellungen\nCREATE TABLE Einstellungen (ID Long)\nINSERT INTO Einstellungen VALUES (1)"_s,
         true},
        {u"INSERT INTO Einstellungen (OhneVorjahr) VALUES (False)\n" // only the first row counts
         u"INSERT INTO Einstellungen (OhneVorjahr) VALUES (True)"_s,
         true},
    };
    for (const auto& [anweisungen, uebernimmt] : faelle) {
        SCOPED_TRACE(anweisungen.toStdString());
        const Testbetrieb hof(QDate(2024, 6, 1));
        hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
        hof.bucht(2025, "05.05. | H1 | Weizen | 10 | Zukauf");
        hof.bucht(2026, "");
        for (const QString& anweisung : anweisungen.split(u'\n', Qt::SkipEmptyParts))
            hof.fuehreAus(2025, anweisung);
        ASSERT_TRUE(JahresUbertrag());
        EXPECT_EQ(hof.journal(2026), zeilen(uebernimmt ? "01.01. | H1 | Weizen | 110 | Anfangsbestand"
                                                       : "01.01. | H1 | Weizen | 10 | Anfangsbestand"));
    }
}

// Only "x" marks a missing farm: without a number the year files lie in the folder "B".
TEST(JahresUbertrag, OhneBetriebOderDatenverzeichnisGeschiehtNichts)
{
    Testbetrieb hof(QDate(2024, 6, 1));
    hof.bucht(2024, "05.05. | H1 | Weizen | 3 | Zukauf");
    hof.bucht(2025, "");
    ASSERT_TRUE(QDir().rename(hof.ort().daten() + u"/B4711"_s, hof.ort().daten() + u"/B"_s));
    modulzustand().Betriebsnummer.clear();
    EXPECT_TRUE(JahresUbertrag());
    EXPECT_EQ(BestandErmitteln(u"Weizen"_s, u"H1"_s, QDate(2025, 1, 1)), 3);
    modulzustand().Betriebsnummer = u"x"_s;
    EXPECT_FALSE(JahresUbertrag());
    modulzustand().Betriebsnummer = u"4711"_s;
    sys::Kill(hof.ort().einstellungen() + u"/ZAB - Programme.ini"_s);
    EXPECT_FALSE(JahresUbertrag());
    const QString meldung = u"Kein Betrieb in der Registrierung eingestellt!"_s;
    EXPECT_EQ(hof.meldungen().abgeholt(), (QStringList{meldung, meldung}));
}

TEST(JahresUbertrag, WasVorEinemFehlerGeschriebenWurdeBleibt)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    hof.bucht(2024, "05.05. | H1 | Anis | 1 | Zukauf\n"
                    "05.05. | H1 | Bauer's Mix | 2 | Zukauf\n"
                    "05.05. | H1 | Weizen | 3 | Zukauf");
    hof.bucht(2025, "");
    try {
        JahresUbertrag();
        ADD_FAILURE() << "an apostrophe must break the statement";
    } catch (const jet::Error& fehler) {
        EXPECT_EQ(fehler.number(), jet::ErrorNumber::ExpressionSyntax) << fehler.what();
    }
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Anis | 1 | Anfangsbestand"));
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikel = 'Mix' WHERE Menge = 2"_s);
    hof.bucht(2024, "01.01. | H1 | Mix | 2 | Zukauf");
    for (const QString& zahlen : {u"Menge = 1E308"_s, u"Menge = 2, Preis = 1E308"_s}) {
        hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET "_s + zahlen + u" WHERE Artikel = 'Mix'"_s);
        try {
            JahresUbertrag();
            ADD_FAILURE() << "no stock and no price is infinite";
        } catch (const jet::Error& fehler) {
            EXPECT_EQ(fehler.text(),
                      u"Überlauf. Datei: '"_s + hof.journaldatei(2024) + u"'. Artikel: 'Mix'. Lagerort: 'H1'."_s);
        }
    }
    hof.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID > 3"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Preis = NULL"_s);
    ASSERT_TRUE(JahresUbertrag());
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Anis | 1 | Anfangsbestand\n"
                                        "01.01. | H1 | Mix | 2 | Anfangsbestand\n"
                                        "01.01. | H1 | Weizen | 3 | Anfangsbestand"));
}
