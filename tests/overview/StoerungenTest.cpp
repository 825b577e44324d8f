// What goes wrong under an open screen: it says so, stays usable and loses nothing.

#include "tests/overview/Hauptbildschirm.h"

#include "core/Modulzustand.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/DateCombo.h"
#include "platform/system/Files.h"
#include "platform/system/Settings.h"
#include "tests/support/Fremdprogramm.h"

#include <QAction>
#include <QFile>
#include <QTabWidget>

#include <functional>

using namespace Qt::StringLiterals;

TEST_F(Hauptbildschirm, EinNameDerDieAnweisungBrichtVerdirbtNurDieseWahl)
{
    hof.bucht(2024, "10.05. | H1 | Vorderachsöl | 5 | Zukauf\n"
                    "11.05. | H1 | Bauer's Mix | 5 | Zukauf\n"
                    "12.05. | H1 | A<b>B | 5 | Zukauf");
    oeffne();
    tippe("drpArtikel", u"A<b>B"_s);
    EXPECT_EQ(journal(), QStringList(u"12.05. | H1 | A<b>B | +5,00 | Zukauf"_s));

    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    tippe("drpArtikel", u"Bauer's Mix"_s);
    const QStringList meldungen = hof.meldungen().abgeholt();
    ASSERT_FALSE(meldungen.isEmpty());
    EXPECT_TRUE(meldungen.first().startsWith(bericht(3075))) << meldungen.first().toStdString();
    tippe("drpArtikel", u"Weizen"_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"3 Bewegungen"_s);
    EXPECT_EQ(ueberschrift("BestandListe"), u"2 Artikel"_s);

    // "order" in a name is cut at the next step, whichever it is. Only that step fails, and what did not fail stays sorted.
    const auto anDerListe = [this](const char* liste, int spalte) {
        feld<QTabWidget>("SSTab1").setCurrentIndex(*liste == 'J' ? 0 : 1);
        klickeKopf(liste, spalte);
    };
    const struct {
        const char* name;
        std::function<void()> scheitert;
        bool journalSortiert; // afterwards; else the stock list is
    } faelle[] = {
        {"der Kopf des Journals", [&] { anDerListe("Journalliste", 1); }, false},
        {"der Kopf der Lagerstandsliste", [&] { anDerListe("BestandListe", 0); }, true},
        {"die nächste Auswahl", [&] { tippe("drpArtikel", u"Hafer"_s); }, false},
    };
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.name);
        for (const int spalte : {0, 4, 4}) // by place, descending
            anDerListe("Journalliste", spalte);
        for (const int spalte : {0, 3}) // by receipts
            anDerListe("BestandListe", spalte);
        tippe("drpArtikel", u"Vorder"_s);
        EXPECT_EQ(hof.meldungen().abgeholt(), QStringList());
        EXPECT_EQ(ueberschrift("Journalliste"), u"1 Bewegung"_s);
        fall.scheitert();
        EXPECT_EQ(hof.meldungen().abgeholt().size(), 1);
        tippe("drpArtikel", u"Weizen"_s);
        EXPECT_EQ(hof.meldungen().abgeholt(), QStringList());
        EXPECT_EQ(ueberschrift("Journalliste"), u"3 Bewegungen"_s);
        EXPECT_EQ(ueberschrift("BestandListe"), u"2 Artikel"_s);
        EXPECT_EQ(journal().first().left(11), fall.journalSortiert ? u"05.04. | H2"_s : u"05.03. | H1"_s);
        EXPECT_EQ(bestaende().first().left(11), fall.journalSortiert ? u"Weizen | H1"_s : u"Weizen | H2"_s);
    }
}

TEST_F(Hauptbildschirm, WasBeimOeffnenScheitertLaesstSichNachholen)
{
    sys::SaveSetting(u"Lagerverwaltung"_s, u"LagerortSumme"_s, u"1"_s);
    const QString datei = hof.journaldatei(2024);
    ASSERT_TRUE(QFile::rename(datei, datei + u".gut"_s));
    QFile kaputt(datei);
    ASSERT_TRUE(kaputt.open(QIODevice::WriteOnly));
    kaputt.write(QByteArray(5000, 'x'));
    kaputt.close();
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    oeffne();
    EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3343)));
    feld<ComboBox>("drpJahr").setProperty("Text", u"neu"_s); // no year, as a host may write it
    feld<ComboBox>("drpJahr").setProperty("Text", u"2024"_s);
    EXPECT_FALSE(hof.meldungen().abgeholt().isEmpty());
    EXPECT_EQ(sys::Dir(hof.ort().betriebsordner(u"4711"_s) + u"/Lager.????"_s),
              (QStringList{u"Lager.2023"_s, u"Lager.2024"_s})); // nothing came into being
    schliesse();
    EXPECT_EQ(sys::GetSetting(u"Lagerverwaltung"_s, u"LagerortSumme"_s), u"1"_s); // nor was forgotten

    oeffne();
    hof.meldungen().abgeholt();
    ASSERT_TRUE(QFile::remove(datei) && QFile::rename(datei + u".gut"_s, datei));
    drucke("drpArtikel", Qt::Key_F5);
    EXPECT_EQ(ueberschrift("Journalliste"), u"6 Bewegungen"_s);
    EXPECT_EQ(feld<ComboBox>("drpArtikel").ListCount(), 4);
}

TEST_F(Hauptbildschirm, EineGeloeschteBewegungUndEinUeberlaufHaltenNichtsAuf)
{
    oeffne();
    feld<QTabWidget>("SSTab1").setCurrentIndex(1);
    klickeKopf("BestandListe", 3); // by receipts
    hof.fuehreAus(2024,
                  u"DELETE * FROM LAGERJOURNAL WHERE Artikel = 'Hafer'"_s); // by another program; it is the current one
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Menge = 1E308 WHERE Artikel = 'Weizen' AND LagerortKurzKu = 'H1'"_s);
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    drucke("drpArtikel", Qt::Key_F5);
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList(bericht(6) + u"Überlauf. Datei: '"_s + hof.journaldatei(2024) +
                                                      u"'. Artikel: 'Weizen'. Lagerort: 'H1'."_s));
    EXPECT_EQ(ueberschrift("Journalliste"), u"5 Bewegungen"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Menge = 1 WHERE Menge = 1E308"_s);
    drucke("drpArtikel", Qt::Key_F5);
    EXPECT_EQ(bestaende().last().left(11), u"Diesel | H2"_s);
    EXPECT_EQ(ueberschrift("BestandListe"), u"3 Artikel"_s);
}

TEST_F(Hauptbildschirm, EinGesperrtesJahrIstEineMeldungUndDannWiederDa)
{
    // Each report is a wait. "Ignorieren" goes on with the repair, the journal and the tick, no further.
    for (const auto& [antwort, berichte] : {std::pair{sys::Answer::Ignore, 3}, std::pair{sys::Answer::Abort, 1}}) {
        const Fremdprogramm sperre(hof.journaldatei(2024), Fremdprogramm::Sperre::Alles);
        hof.meldungen().beantworteAlle(antwort);
        oeffne();
        EXPECT_EQ(hof.meldungen().abgeholt().filter(bericht(3218)).size(), berichte);
        drucke("drpArtikel", Qt::Key_F5);
        EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3218)));
    }
    drucke("drpArtikel", Qt::Key_F5);
    EXPECT_EQ(ueberschrift("Journalliste"), u"6 Bewegungen"_s);
    EXPECT_EQ(ueberschrift("BestandListe"), u"4 Artikel"_s);
}

// Dates, status line, rows and the year that is booked into must be of one year, however the user answers.
TEST_F(Hauptbildschirm, EinBeschaedigtesJahrLaesstDenBildschirmBeimAlten)
{
    QFile datei(hof.journaldatei(2025));
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write(QByteArray(5000, 'x'));
    datei.close();
    oeffne();
    tippe("VonDatum", u"2.4.2024"_s);
    drucke("Journalliste", Qt::Key_End);
    for (const sys::Answer antwort : {sys::Answer::Abort, sys::Answer::Ignore}) {
        hof.meldungen().beantworteAlle(antwort);
        tippe("drpJahr", u"2025"_s);
        EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3343)));
        EXPECT_EQ(feld<ComboBox>("drpJahr").Text(), u"2024"_s);
        EXPECT_EQ(modulzustand().Jahr, u"2024"_s);
        EXPECT_EQ(feld<DateCombo>("VonDatum").Date(), QDate(2024, 4, 2));
        EXPECT_EQ(aktuelleBewegung().left(6), u"09.05."_s);
        EXPECT_EQ(ueberschrift("Journalliste"), u"5 Bewegungen"_s);
    }
}

TEST_F(Hauptbildschirm, EineAeltereDateiOhneDieSpalteZaehltAlsNein)
{
    hof.fuehreAus(2024, u"DROP TABLE Einstellungen"_s);
    hof.fuehreAus(2024, u"CREATE TABLE Einstellungen (ID Counter PRIMARY KEY)"_s);
    oeffne();
    auto& vorjahr = feld<QAction>("M_Vorjahr");
    EXPECT_FALSE(vorjahr.isChecked());
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    vorjahr.trigger();
    EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3265)));
    EXPECT_FALSE(vorjahr.isChecked());
}

TEST_F(Hauptbildschirm, LeereSpaltenUndUhrzeitenSindZeilenWieAndere)
{
    hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum) VALUES (#5/10/2024 13:45:00#)"_s);
    hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Artikel) VALUES ('"_s + QString(50, u'Ä') + u"')"_s);
    oeffne();
    EXPECT_EQ(ueberschrift("Journalliste"), u"6 Bewegungen"_s); // no article and no date do not meet the filter
    EXPECT_EQ(ueberschrift("BestandListe"), u"4 Artikel"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikel = 'Mais' WHERE ISNULL(Artikel)"_s);
    drucke("Journalliste", Qt::Key_F5);
    EXPECT_EQ(journal().last().left(6), u"10.05."_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"7 Bewegungen"_s);
}

TEST_F(Hauptbildschirm, EineVerschwundeneDateiIstEinFehlerUndKehrtZurueck)
{
    oeffne();
    klickeKopf("Journalliste", 1);
    const QString datei = hof.journaldatei(2024);
    ASSERT_TRUE(QFile::rename(datei, datei + u".weg"_s));
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    drucke("drpArtikel", Qt::Key_F5);
    EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3024)));
    EXPECT_FALSE(QFile::exists(datei)); // nothing is created by looking for it
    EXPECT_EQ(ueberschrift("Journalliste"), u"Nicht gelesen"_s);
    ASSERT_TRUE(QFile::rename(datei + u".weg"_s, datei));
    drucke("drpArtikel", Qt::Key_F5);
    EXPECT_EQ(ueberschrift("Journalliste"), u"6 Bewegungen"_s);
    EXPECT_EQ(journal().first().mid(14, 6), u"Diesel"_s); // sorted as before: the text was not at fault
}
