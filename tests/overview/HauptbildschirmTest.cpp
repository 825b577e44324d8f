// The main screen as users drive it: real windows, keys and clicks, then the file is asked.

#include "tests/overview/Hauptbildschirm.h"

#include "core/Modulzustand.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/DateCombo.h"
#include "platform/system/Settings.h"
#include "tests/support/Bildschirm.h"

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

TEST_F(Hauptbildschirm, ZeigtDasJahrInBeidenAnsichten)
{
    oeffne();
    EXPECT_EQ(fenster->windowTitle(), u"Lagerverwaltung des Betriebes 4711 Lindenhof, Lindenau 3"_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"6 Bewegungen"_s);
    EXPECT_EQ(journal(),
              (QStringList{u"05.03. | H1 | Weizen | +100,00 | Zukauf"_s, u"05.04. | H2 | Weizen | +50,00 | Zukauf"_s,
                           u"06.05. | H1 | Weizen | -20,00 | Verkauf"_s, u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s,
                           u"08.05. | H2 | Diesel | -1.500,00 | Eigenverbrauch"_s,
                           u"09.05. | H1 | Hafer | +0,00 | Zukauf"_s})); // the value counts: 0,00001 is not nothing
    EXPECT_EQ(aktuelleBewegung(), u"09.05. | H1 | Hafer | +0,00 | Zukauf"_s); // the newest
    EXPECT_EQ(ueberschrift("BestandListe"), u"4 Artikel"_s);
    EXPECT_EQ(bestaende(),
              (QStringList{u"Diesel | H2 | 1.500,00 | 1.500,00 | "_s, u"Hafer | H1 |  |  | "_s,
                           u"Weizen | H1 | 100,00 | 20,00 | 80,00"_s, u"Weizen | H2 | 50,00 |  | 50,00"_s}));
    EXPECT_EQ(modulzustand().Lagerdatei, hof.ort().daten() + u"\\B4711\\Lager.2024"_s);
    EXPECT_EQ(modulzustand().Jahr, u"2024"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Hauptbildschirm, DieFilterEngenBeideAnsichtenEin)
{
    oeffne();
    tippe("drpLagerOrte", u"h1"_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"3 Bewegungen"_s);
    EXPECT_EQ(bestaende(), (QStringList{u"Hafer | H1 |  |  | "_s, u"Weizen | H1 | 100,00 | 20,00 | 80,00"_s}));
    tippe("drpLagerOrte", u"Alle"_s);

    tippe("drpArtikel", u"weiz"_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"3 Bewegungen"_s);
    tippe("drpArtikelGruppe", u"treib"_s); // a kind offers its own articles, and all of them
    EXPECT_EQ(feld<ComboBox>("drpArtikel").Text(), u"Alle Artikel"_s);
    EXPECT_EQ(feld<ComboBox>("drpArtikel").ListCount(), 2);
    EXPECT_EQ(ueberschrift("Journalliste"), u"2 Bewegungen"_s);
    EXPECT_EQ(bestaende(), QStringList(u"Diesel | H2 | 1.500,00 | 1.500,00 | "_s));
    tippe("drpArtikelGruppe", u"Alle"_s);

    tippe("VonDatum", u"6.5.24"_s);
    tippe("Buchdatum", u"7.5."_s);
    EXPECT_EQ(journal(), (QStringList{u"06.05. | H1 | Weizen | -20,00 | Verkauf"_s,
                                      u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s}));
    struct Tag {
        const char* feld;
        QString text;
        int bewegungen;
        QString vonGrund, bisGrund; ///< Parts of what the fields say about themselves.
    };
    const Tag tage[] = {
        {"Buchdatum", u"32.13."_s, 6, {}, u"'32.13.' gibt es nicht"_s}, // neither of the two limits anything
        {"Buchdatum", u" "_s, 6, {}, u"fehlt ein Datum"_s},
        {"Buchdatum", u"1.5."_s, 0, u"liegt vor"_s, u"liegt vor"_s},
        {"VonDatum", u"1.4."_s, 1, {}, {}},
    };
    for (const Tag& tag : tage) {
        tippe(tag.feld, tag.text);
        EXPECT_EQ(ueberschrift("Journalliste").section(u' ', 0, 0), QString::number(tag.bewegungen));
        for (const auto& [feldname, grund] :
             {std::pair("VonDatum", tag.vonGrund), std::pair("Buchdatum", tag.bisGrund)}) {
            const auto& datum = feld<DateCombo>(feldname);
            const auto* const zeichen = datum.findChild<QAction*>(u"FieldMark"_s);
            EXPECT_EQ(zeichen && zeichen->isVisible(), !grund.isEmpty()) << feldname;
            EXPECT_TRUE(datum.toolTip().contains(grund) && datum.accessibleDescription().contains(grund)) << feldname;
        }
    }
    EXPECT_EQ(feld<DateCombo>("VonDatum").toolTip(), u"Strg+T"_s);
}

TEST_F(Hauptbildschirm, DieHakenSummierenUndBlendenAus)
{
    oeffne();
    drucke("chkOhneNull", Qt::Key_Space);
    EXPECT_EQ(bestaende(), (QStringList{u"Hafer | H1 |  |  | "_s, u"Weizen | H1 | 100,00 | 20,00 | 80,00"_s,
                                        u"Weizen | H2 | 50,00 |  | 50,00"_s})); // 0.00001 is a stock
    drucke("chkNurSumme", Qt::Key_Space);
    EXPECT_EQ(bestaende(), (QStringList{u"Hafer |  |  | "_s, u"Weizen | 150,00 | 20,00 | 130,00"_s}));
    schliesse();
    oeffne(); // the state comes back
    EXPECT_EQ(ueberschrift("BestandListe"), u"2 Artikel"_s);
    drucke("chkNurSumme", Qt::Key_Space);
    EXPECT_EQ(ueberschrift("BestandListe"), u"3 Artikel"_s);
    schliesse();
    EXPECT_EQ(sys::GetSetting(u"Lagerverwaltung"_s, u"LagerortSumme"_s), u"0"_s);
    EXPECT_EQ(sys::GetSetting(u"Lagerverwaltung"_s, u"OhneNull"_s), u"1"_s);
}

TEST_F(Hauptbildschirm, EinKlickAufDenKopfSortiertEinZweiterUmgekehrt)
{
    oeffne();
    feld<DataGrid>("Journalliste").setCurrentIndex(feld<DataGrid>("Journalliste").model()->index(2, 0));
    const QString aktuell = aktuelleBewegung();
    struct Fall {
        int spalte;
        QString erste, letzte;
    };
    const Fall faelle[] = {
        {1, u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s, u"06.05. | H1 | Weizen | -20,00 | Verkauf"_s},
        {1, u"06.05. | H1 | Weizen | -20,00 | Verkauf"_s, u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s},
        {1, u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s, u"06.05. | H1 | Weizen | -20,00 | Verkauf"_s},
        {5, u"08.05. | H2 | Diesel | -1.500,00 | Eigenverbrauch"_s, u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s},
        {0, u"05.03. | H1 | Weizen | +100,00 | Zukauf"_s, u"09.05. | H1 | Hafer | +0,00 | Zukauf"_s},
    };
    for (const Fall& fall : faelle) {
        klickeKopf("Journalliste", fall.spalte);
        EXPECT_EQ(journal().first(), fall.erste) << fall.spalte;
        EXPECT_EQ(journal().last(), fall.letzte) << fall.spalte;
        EXPECT_EQ(aktuelleBewegung(), aktuell); // the booking one is at stays current
    }
    feld<DataGrid>("Journalliste").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_X, Qt::AltModifier); // by the menu, without a mouse
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_S);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_EQ(journal().first(), u"07.05. | H2 | Diesel | +1.500,00 | Zukauf"_s);
    tippe("drpLagerOrte", u"H1"_s); // filtering keeps the order
    EXPECT_EQ(journal().first(), u"09.05. | H1 | Hafer | +0,00 | Zukauf"_s);
    EXPECT_EQ(aktuelleBewegung(), aktuell);
    tippe("drpLagerOrte", u"Alle"_s);

    feld<QTabWidget>("SSTab1").setCurrentIndex(1);
    for (const int spalte : {5, 3, 4})
        klickeKopf("BestandListe", spalte);
    EXPECT_EQ(bestaende().first(), u"Diesel | H2 | 1.500,00 | 1.500,00 | "_s); // by issues, which count below 0
    klickeKopf("BestandListe", 4);
    EXPECT_EQ(bestaende().last(), u"Diesel | H2 | 1.500,00 | 1.500,00 | "_s);
}

TEST_F(Hauptbildschirm, EinAnderesJahrBekommtSeineAnfangsbestaende)
{
    hof.bucht(2025, "01.02. | H1 | Weizen | -30 | Verkauf");
    hof.fuehreAus(2025, u"UPDATE LAGERJOURNAL SET Artikelart = 'Futtermittel'"_s);
    hof.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE LagerortKurzKu = 'H2' AND Artikel = 'Weizen'"_s);
    modulzustand().Lagername = u"H2"_s; // as the host asked
    oeffne();
    EXPECT_EQ(hof.journal(2025).size(), 1U);
    tippe("drpArtikelGruppe", u"Treib"_s);
    tippe("drpArtikel", u"Diesel"_s);
    tippe("drpJahr", u"2025"_s); // knows no H2 and no Diesel: they limit nothing there
    EXPECT_EQ(feld<ComboBox>("drpArtikelGruppe").Text(), u"Alle Artikelgruppen"_s);
    EXPECT_EQ(feld<ComboBox>("drpArtikel").Text(), u"Alle Artikel"_s);
    EXPECT_EQ(feld<ComboBox>("drpArtikel").ListCount(), 2);
    EXPECT_EQ(feld<ComboBox>("drpLagerOrte").Text(), u"Alle Lagerorte"_s);
    EXPECT_EQ(modulzustand().Stichdatum, QDate(2024, 1, 1));
    EXPECT_EQ(modulzustand().Jahr, u"2025"_s);
    EXPECT_EQ(journal(), (QStringList{u"01.01. | H1 | Weizen | +80,00 | Anfangsbestand"_s,
                                      u"01.02. | H1 | Weizen | -30,00 | Verkauf"_s}));
    EXPECT_EQ(aktuelleBewegung(), u"01.02. | H1 | Weizen | -30,00 | Verkauf"_s);
    EXPECT_EQ(feld<DateCombo>("VonDatum").Date(), QDate(2025, 1, 1));
    EXPECT_EQ(hof.journal(2024).size(), 5U); // 2023 was not carried into it
    tippe("drpLagerOrte", u"H1"_s);
    tippe("drpJahr", u"2024"_s);
    EXPECT_EQ(feld<ComboBox>("drpLagerOrte").Text(), u"H1"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Hauptbildschirm, DasVorjahrLaesstSichAusschliessen)
{
    hof.bucht(2025, "01.02. | H1 | Weizen | -30 | Verkauf");
    modulzustand().Stichdatum = QDate(2025, 1, 1);
    oeffne();
    auto& vorjahr = feld<QAction>("M_Vorjahr");
    EXPECT_FALSE(vorjahr.isChecked());
    EXPECT_EQ(hof.zeigt(2025, u"SELECT OhneVorjahr FROM Einstellungen"_s), QStringList(u"0"_s)); // one row is made
    vorjahr.trigger();
    EXPECT_TRUE(vorjahr.isChecked());
    EXPECT_EQ(hof.zeigt(2025, u"SELECT OhneVorjahr FROM Einstellungen"_s), QStringList(u"-1"_s));
    tippe("drpJahr", u"2024"_s);
    EXPECT_FALSE(vorjahr.isChecked());
    EXPECT_EQ(hof.journal(2025).size(), 1U);
    tippe("drpJahr", u"2025"_s);
    EXPECT_TRUE(vorjahr.isChecked());
    vorjahr.trigger(); // from the key date's year on: 2024 into 2025
    EXPECT_EQ(hof.journal(2025).size(), 3U);
    EXPECT_EQ(aktuelleBewegung(), u"01.02. | H1 | Weizen | -30,00 | Verkauf"_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"3 Bewegungen"_s);
}

TEST_F(Hauptbildschirm, AlteEinheitenWerdenBeimFilternBerichtigt)
{
    hof.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Artikelart, LagerortKurzKu, Menge, Einheit)"
                        u" VALUES (#5/9/2024#, 'Quendolar', 'Pflanzenschutzmittel', 'PSM', 2, 'Lt')"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Einheit = 'Lt' WHERE Artikel = 'Diesel'"_s);
    oeffne();
    EXPECT_EQ(hof.zeigt(2024, u"SELECT Artikel, Einheit FROM LAGERJOURNAL WHERE Artikel <> 'Weizen' ORDER BY ID"_s),
              (QStringList{u"Diesel | Lt"_s, u"Diesel | Lt"_s, u"Hafer | dt"_s, u"Quendolar | l"_s}));
}

TEST_F(Hauptbildschirm, DerReiterStelltDenDruckUm)
{
    oeffne();
    auto& reiter = feld<QTabWidget>("SSTab1");
    auto& gruppierung = feld<ComboBox>("DrpGruppierung");
    EXPECT_EQ(gruppierung.ListCount(), 5);
    gruppierung.setText(u"Buchungsart"_s);
    reiter.setCurrentIndex(1);
    EXPECT_EQ(feld<QPushButton>("Command2").text(), u"Lagerstandsliste drucken"_s);
    EXPECT_EQ(gruppierung.Text(), u"Artikel"_s);
    EXPECT_EQ(gruppierung.ListCount(), 4);
    EXPECT_FALSE(feld<QWidget>("Frame3").isVisible());
    reiter.setCurrentIndex(0);
    EXPECT_EQ(feld<QPushButton>("Command2").text(), u"Bewegungsjournal drucken"_s);
    EXPECT_TRUE(feld<QWidget>("Frame3").isVisible());
}

TEST_F(Hauptbildschirm, NurDieErsteAktivierungGehtZurNeuestenBewegung)
{
    oeffne();
    drucke("Journalliste", Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(aktuelleBewegung(), u"05.03. | H1 | Weizen | +100,00 | Zukauf"_s);
    QWidget anderes;
    anderes.show();
    anderes.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&anderes));
    fenster->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(fenster.get()));
    EXPECT_EQ(aktuelleBewegung(), u"05.03. | H1 | Weizen | +100,00 | Zukauf"_s);
    drucke("Command1", Qt::Key_Return); // on a focused button Enter presses it
    EXPECT_FALSE(fenster->isVisible());
    EXPECT_EQ(hof.journal(2024).size(), 6U);
}

TEST_F(Hauptbildschirm, DerWirtKannEinenLagerortVorgeben)
{
    modulzustand().Lagername = u"H2"_s;
    oeffne();
    EXPECT_EQ(feld<ComboBox>("drpLagerOrte").Text(), u"H2"_s);
    EXPECT_TRUE(feld<CheckBox>("chkNurSumme").isChecked());
    EXPECT_EQ(feld<QTabWidget>("SSTab1").currentIndex(), 0);
    EXPECT_EQ(ueberschrift("Journalliste"), u"3 Bewegungen"_s);
    EXPECT_EQ(bestaende(), (QStringList{u"Diesel | 1.500,00 | 1.500,00 | "_s, u"Weizen | 50,00 |  | 50,00"_s}));
    schliesse();
    modulzustand().Lagername = u"XY"_s; // no row has it: it stays shown
    oeffne();
    EXPECT_EQ(feld<ComboBox>("drpLagerOrte").Text(), u"XY"_s);
    EXPECT_EQ(ueberschrift("Journalliste"), u"0 Bewegungen"_s);
    schliesse();
    modulzustand().Lagername = u"O'Brien"_s; // breaks the statement; the lists are there to choose another
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    oeffne();
    EXPECT_TRUE(hof.meldungen().abgeholt().value(0).startsWith(bericht(3075)));
    EXPECT_EQ(feld<ComboBox>("drpArtikel").ListCount(), 4);
}

TEST_F(Hauptbildschirm, LieferscheineOeffnenSichFuerDasGezeigteJahr)
{
    for (const int jahr : {2023, 2024}) {
        hof.fuehreAus(jahr,
                      u"INSERT INTO LAGERJOURNAL (Datum, Uberstallt_alt, Buchungsart, Artikel, Menge) VALUES (#5/1/"_s +
                          QString::number(jahr) + u"#, 'HUBER', 'Verkauf', 'Heu', -1)"_s);
    }
    oeffne();
    tippe("drpJahr", u"2023"_s);
    imNaechstenFenster([](QWidget& ausdruck) {
        EXPECT_EQ(ausdruck.windowTitle(), u"Ausdruck von Lieferscheinen"_s);
        const auto* const liste = ausdruck.findChild<DataGrid*>(u"SSDBGrid1"_s);
        EXPECT_EQ(liste->Caption(), u"1 Lieferung(en)"_s);
        EXPECT_EQ(liste->model()->index(0, 0).data().toString(), u"01.05.2023"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    drucke("Command5", Qt::Key_Return);
    EXPECT_EQ(hof.zeigt(2024, u"SELECT Count(Lieferscheinnummer) FROM LAGERJOURNAL"_s), QStringList(u"0"_s));
}
