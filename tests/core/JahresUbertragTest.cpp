#include "core/JahresUbertrag.h"

#include "core/Bestand.h"
#include "core/Modulzustand.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Fremdprogramm.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// What a carry-forward says that does not come to its end.
QString ablehnung()
{
    try {
        return JahresUbertrag() ? u"übertragen"_s : u"nicht übertragen"_s;
    } catch (const std::runtime_error& fehler) { // of either kind
        return QString::fromUtf8(fehler.what());
    }
}

} // namespace

TEST(JahresUbertrag, SetztJedemPaarSeinenAnfangsbestand)
{
    const Testbetrieb hof;
    const char* const alt = "01.02. | H2 | Weizen | 3 | Zukauf\n"
                            "30.06. | H1 | Weizen | 120 | Ernte\n"
                            "31.12. | H1 | Weizen | -20 | Verkauf\n"
                            "01.02. | H1 | weizen  | 4 | Zukauf\n" // another spelling is no other article
                            "01.02. | H1 | Äpfel | -1 | Verkauf\n"
                            "01.02. | H1 | Staub | 0,00004 | Zukauf\n" // opens no row
                            "01.02. | H1 | Neu | 1,23456 | Zukauf\n"
                            "01.02. | H1 | Rest | 0,00004 | Zukauf\n"
                            "01.02. | H1 | Null | 4 | Zukauf\n"
                            "02.02. | H1 | Null | -4 | Verkauf\n"
                            "01.02. | H1 | Erste | 4 | Zukauf\n"
                            "01.02. | H1 | Andere | 4 | Zukauf\n"
                            "01.02. | NULL | Weizen | 4 | Zukauf\n" // each run would add a row
                            "01.02. | H1 | NULL | 4 | Zukauf";
    hof.bucht(2024, alt);
    for (const QString& werte :
         {u"Artikelart = 'Saatgut', Einheit = 'kg', Preis = 3.5 WHERE ID = 2"_s, // booked first
          u"Artikelart = 'Futtermittel', Einheit = 't', Preisfaktor = '100' WHERE ID IN (3, 4)"_s,
          u"Preis = 4.5, BuchungsID = 77 WHERE ID = 4"_s})
        hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET "_s + werte);
    hof.bucht(2025, "01.01. | H1 | Rest | 5 | Anfangsbestand\n"
                    "01.01. | H1 | Null | 5 | Anfangsbestand\n"
                    "03.02. | h1 | ERSTE | 5 | Anfangsbestand\n"
                    "01.01. | H1 | Erste | 6 | Anfangsbestand\n"
                    "01.01. | H1 | Andere | 5 | Zukauf\n"
                    "01.01. | H2 | Andere | 6 | Anfangsbestand\n"
                    "01.01. | H1 | Mais | 7 | Anfangsbestand");
    QByteArray danach =
        "01.01. | H1 | Rest | 0,00004 | Anfangsbestand\n" // what is there already is never rounded
        "01.01. | H1 | Null | 0 | Anfangsbestand\n"
        "03.02. | h1 | ERSTE | 4 | Anfangsbestand\n" // the first one, and its day stays
        "01.01. | H1 | Erste | 6 | Anfangsbestand\n"
        "01.01. | H1 | Andere | 5 | Zukauf\n"
        "01.01. | H2 | Andere | 6 | Anfangsbestand\n"
        "01.01. | H1 | Mais | 7 | Anfangsbestand\n"
        "01.01. | H1 | Andere | 4 | Anfangsbestand\n"
        "01.01. | H1 | Äpfel | -1 | Anfangsbestand\n"
        "01.01. | H1 | Neu | 1,2346 | Anfangsbestand\n"
        "01.01. | H1 | Weizen | 104 | Anfangsbestand\n"
        "01.01. | H2 | Weizen | 3 | Anfangsbestand";
    for (int lauf = 1; lauf <= 3; ++lauf) {
        EXPECT_EQ(ablehnung(), u"übertragen"_s);
        EXPECT_EQ(hof.journal(2025), zeilen(danach)) << lauf;
        danach.replace("1,2346", "1,23456"); // the row exists by now
    }
    EXPECT_EQ(hof.journal(2024), zeilen(alt));
    EXPECT_EQ(hof.zeigt(2025, u"SELECT * FROM LAGERJOURNAL WHERE ID IN (10, 11)"_s),
              (QStringList{
                  u"10 | 01.01.2025 | Neu | NULL | H1 | 1,23456 | NULL | NULL | NULL | NULL | Anfangsbestand"
                  u" | 0 | NULL | NULL | NULL | NULL | NULL | NULL"_s,
                  u"11 | 01.01.2025 | Weizen | Saatgut | H1 | 104 | NULL | 4 | NULL | kg | Anfangsbestand | 0"
                  u" | NULL | NULL | NULL | NULL | NULL | NULL"_s}));
}

TEST(JahresUbertrag, NurXStehtFuerEinenFehlendenBetrieb)
{
    Testbetrieb hof;
    modulzustand().Betriebsnummer.clear();
    EXPECT_EQ(ablehnung(), u"nicht übertragen"_s); // without a number the year files lie in the folder "B"
    hof.bucht(2024, "");
    jet::engine().release();
    ASSERT_TRUE(QDir().rename(hof.ort().daten() + u"/B4711"_s, hof.ort().daten() + u"/B"_s));
    EXPECT_EQ(ablehnung(), u"übertragen"_s);
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList());
    modulzustand().Betriebsnummer = u"x"_s;
    EXPECT_EQ(ablehnung(), u"nicht übertragen"_s);
    modulzustand().Betriebsnummer.clear();
    sys::Kill(hof.ort().einstellungen() + u"/ZAB - Programme.ini"_s);
    EXPECT_EQ(ablehnung(), u"nicht übertragen"_s);
    const QString meldung = u"Kein Betrieb in der Registrierung eingestellt!"_s;
    EXPECT_EQ(hof.meldungen().abgeholt(), (QStringList{meldung, meldung}));
}

TEST(JahresUbertrag, WasVorEinemFehlerGeschriebenWurdeBleibt)
{
    const Testbetrieb hof;
    hof.bucht(2024, "05.05. | H1 | Anis | 1 | Zukauf\n"
                    "05.05. | H1 | Mix | 2 | Zukauf\n"
                    "05.05. | H1 | Mix | 2 | Zukauf\n"
                    "05.05. | H1 | Weizen | 3 | Zukauf");
    hof.bucht(2025, "");
    const auto mitMix = [&](const QString& werte) {
        hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET "_s + werte + u" WHERE ID IN (2, 3)"_s);
        return ablehnung();
    };
    EXPECT_TRUE(mitMix(u"Artikel = 'Bauer''s Mix'"_s).startsWith(u"Syntaxfehler"_s)); // kept
    const auto nurAnis = zeilen("01.01. | H1 | Anis | 1 | Anfangsbestand");
    EXPECT_EQ(hof.journal(2025), nurAnis);
    const QString ueberlauf =
        u"Überlauf. Datei: '%1'. Artikel: 'Mix'. Lagerort: 'H1'."_s.arg(hof.journaldatei(2024));
    EXPECT_EQ(mitMix(u"Artikel = 'Mix', Menge = 1E308"_s), ueberlauf);
    EXPECT_EQ(mitMix(u"Menge = 2, Preis = 1E308"_s), ueberlauf);
    EXPECT_EQ(hof.journal(2025), nurAnis);
    EXPECT_EQ(mitMix(u"Preis = NULL"_s), u"übertragen"_s);
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Anis | 1 | Anfangsbestand\n"
                                        "01.01. | H1 | Mix | 4 | Anfangsbestand\n"
                                        "01.01. | H1 | Weizen | 3 | Anfangsbestand"));
    modulzustand().Stichdatum = QDate(2025, 1, 1); // the last year feeds none and is asked all the same
    hof.fuehreAus(2025, u"DROP TABLE LAGERJOURNAL"_s);
    hof.fuehreAus(2025, u"CREATE TABLE LAGERJOURNAL (ID Counter)"_s);
    EXPECT_NE(ablehnung(), u"übertragen"_s);
}

TEST(JahresUbertrag, EinKennwortInDerVorlageBeendetNurDieBestandsfrage)
{
    const Testbetrieb hof;
    sys::Kill(hof.journaldatei(2024));
    jet::engine()
        .CreateDatabase(hof.journaldatei(2024), u";pwd=quenlor"_s)
        ->Execute(
            u"CREATE TABLE LAGERJOURNAL (ID Counter PRIMARY KEY, Datum Date, Artikel Text, Artikelart Text,"
            u" LagerortKurzKu Text, Menge Double, Preis Double, Preisfaktor Text, Einheit Text)"_s);
    EXPECT_EQ(ablehnung(), u"übertragen"_s);
    EXPECT_THROW(BestandErmitteln(u"Weizen"_s, u"H1"_s, QDate(2024, 5, 1)), jet::Error);
}

TEST(JahresUbertrag, EinGesperrtesJahrIstEinFehlerUndWerZuzweitKommtSiehtWasDaSteht)
{
    const Testbetrieb hof;
    hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
    hof.bucht(2025, "");
    {
        const Fremdprogramm anderes(hof.journaldatei(2025));
        EXPECT_EQ(BestandErmitteln(u"Weizen"_s, u"H1"_s, QDate(2025, 5, 1)), 0); // reading goes on
        EXPECT_TRUE(ablehnung().contains(u"gesperrt"_s)) << ablehnung().toStdString();
    }
    {
        const Fremdprogramm anderes(
            hof.journaldatei(2025),
            "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge, Buchungsart)"
            " VALUES (#1/1/2025#, 'Weizen', 'H1', 7, 'Anfangsbestand')");
        EXPECT_EQ(ablehnung(), u"übertragen"_s);
    }
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Weizen | 100 | Anfangsbestand"));
}

TEST(JahresUbertrag, JedeStoerungDerPlatteLaesstGanzeJahreUndDerNaechsteLaufHoltNach)
{
    const Testbetrieb hof(QDate(2022, 6, 1));
    hof.bucht(2022, "05.05. | H1 | Weizen | 100 | Zukauf\n"
                    "06.05. | H1 | Mais | 20 | Zukauf");
    hof.bucht(2023, "01.01. | H1 | Mais | 5 | Anfangsbestand\n" // one row is changed, one is new
                    "07.05. | H2 | Mais | 1 | Zukauf");
    hof.bucht(2024, "");
    constexpr int Jahre[] = {2022, 2023, 2024};
    const auto kopie = [&](int jahr) { return hof.journaldatei(jahr) + u".kopie"_s; };
    for (const int jahr : Jahre)
        sys::FileCopy(hof.journaldatei(jahr), kopie(jahr));
    const auto staende = [&] { return std::vector{hof.journal(2022), hof.journal(2023), hof.journal(2024)}; };
    const auto vorher = staende();
    ASSERT_EQ(ablehnung(), u"übertragen"_s);
    const auto nachher = staende();
    ASSERT_EQ(nachher[2].size(), 3);
    const auto stelleHer = [&] {
        for (const int jahr : Jahre)
            sys::FileCopy(kopie(jahr), hof.journaldatei(jahr));
    };
    const auto uebertrage = [] {
        const QString text = ablehnung();
        if (text == u"übertragen") return;
        EXPECT_TRUE(text.contains(u"Lager.202"_s)) << text.toStdString();
        throw std::runtime_error("refused");
    };
    stoereUeberall(stelleHer, uebertrage, [&](bool fertig) {
        const auto gefunden = staende();
        for (std::size_t i = 0; i < gefunden.size(); ++i) {
            EXPECT_TRUE(gefunden[i] == nachher[i] || (!fertig && gefunden[i] == vorher[i])) << i;
            EXPECT_EQ(befund(hof.journaldatei(Jahre[i])), u"ok"_s);
        }
        EXPECT_EQ(ablehnung(), u"übertragen"_s);
        EXPECT_EQ(staende(), nachher);
    });
}
