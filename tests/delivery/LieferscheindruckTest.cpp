// What the screen shows and keeps, and what stands on the paper.

#include "tests/delivery/Lieferscheinfenster.h"

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataGrid.h"
#include "platform/jet/Engine.h"
#include "platform/system/Settings.h"
#include "tests/support/Pdf.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPushButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

TEST_F(Lieferscheinfenster, EinLieferscheinNurMitDerTastatur)
{
    NEEDS_PDFTOTEXT;
    verkauft(u"01.05. | ADLER | Heu | 3 | dt\n"
             u"02.05. | BERGER | Weizen | 5,25 | dt | 21,50 | 1\n"
             u"02.05. | BERGER | Winterroggen | 1250 | kg | 42 | 100\n"
             u"03.05. | ADLER | Heu | 4 | dt"_s);
    oeffne();
    auto& liste = feld<DataGrid>("SSDBGrid1");
    EXPECT_EQ(liste.Caption(), u"4 Lieferung(en)"_s);
    const QRect platz = fenster->screen()->availableGeometry();
    EXPECT_LE(fenster->frameGeometry().height(), platz.height());
    EXPECT_LE(fenster->frameGeometry().width(), platz.width());
    fenster->resize(400, 260); // a smaller display: it scrolls, and its buttons stay
    for (const char* knopf : {"Command1", "Command2"}) {
        auto& taste = feld<QPushButton>(knopf);
        EXPECT_TRUE(fenster->rect().contains(QRect(taste.mapTo(fenster.get(), QPoint()), taste.size()))) << knopf;
    }
    fenster->resize(fenster->sizeHint().expandedTo(QSize(780, 560)));
    EXPECT_EQ(liste.currentIndex().row(), 3) << "the newest one";
    EXPECT_EQ(QApplication::focusWidget(), &liste);
    tippe("Text2(2)", u"Tel. 0123"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"Text1"_s);
    tippe("Text1", u"Vielen Dank!"_s);
    feld<QWidget>("chkPreis").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    waehle(1);
    const QStringList seite = {u"Lindenhof"_s,
                               u"Lindenau 3, 4799 Beispielau"_s,
                               u"Tel. 0123"_s,
                               u"Lindenhof, Lindenau 3, 4799 Beispielau"_s,
                               u"Berger Franz Lieferschein"_s,
                               u"Oberau 7 Nummer 2"_s,
                               u"4798 Musterdorf Lieferdatum 02.05.2024"_s,
                               u"Pos. Artikel Menge Einheit Preis je EURO"_s,
                               u"1 Weizen 5,25 dt 21,50 dt 112,88"_s,
                               u"2 Winterroggen 1.250,00 kg 42,00 100 kg 525,00"_s,
                               u"Summe in EURO 637,88"_s,
                               u"Vielen Dank!"_s,
                               u"Übergeben: Datum, Unterschrift Übernommen: Datum, Unterschrift"_s,
                               u"Empfänger: BERGER Seite 1 von 1"_s};
    EXPECT_EQ(drucke(), std::vector<QStringList>{seite});
    EXPECT_EQ(feld<report::PrintControl>("Report").property("DocumentName"), u"Lieferschein 2 BERGER"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(einstellungen(), QStringList(u"Standardlieferschein.rpt | Lindenhof | Lindenau 3, 4799 Beispielau |"
                                           u" Tel. 0123 | Vielen Dank! | -1"_s));

    tippe("drpFormular", u"lieferscheina"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(drucke().size(), 1u);

    tippe("Text2(2)", {});
    schliesse();
    EXPECT_EQ(einstellungen(), QStringList(u"LieferscheinA5.rpt | Lindenhof | Lindenau 3, 4799 Beispielau |"
                                           u"  | Vielen Dank! | -1"_s));
    oeffne();
    EXPECT_EQ(feld<ComboBox>("drpFormular").Text(), u"LieferscheinA5.rpt"_s);
    EXPECT_EQ(feld<CheckBox>("chkPreis").Value(), 1);
    QStringList formulare;
    for (int i = 0; i < feld<ComboBox>("drpFormular").ListCount(); ++i)
        formulare.append(feld<ComboBox>("drpFormular").Cell(i, 0));
    EXPECT_EQ(formulare, (QStringList{u"LieferscheinA5.rpt"_s, u"Standardlieferschein.rpt"_s}));
}

TEST_F(Lieferscheinfenster, PreiseStehenNurWoWelcheSind)
{
    NEEDS_PDFTOTEXT;
    verkauft(u"01.05. | BERGER | A | 3 | dt | 10 | 100\n01.05. | BERGER | B | 3 | dt | 10 | 0\n"
             u"01.05. | BERGER | C | 3 | dt | 10 | \n01.05. | BERGER | D | 3 | NULL | 10 | x\n"
             u"01.05. | BERGER | E | 3 | dt | 0,1234 | 1,5\n01.05. | BERGER | F | -3 | dt | 10 | NULL\n"
             u"01.05. | BERGER | G | 12,5 | dt | 0,25 | 1\n01.05. | BERGER | H | -12,5 | dt | 0,25 | 1\n"
             u"02.05. | BERGER | G | 3 | dt | NULL | 1\n02.05. | BERGER | H | 2 | dt | 7 | 1\n"
             u"03.05. | BERGER | I | 3 | dt | NULL | 1\n03.05. | BERGER | J | 0,0004 | dt | 0 | 1\n"
             u"04.05. | GAST | K | 1 | NULL | 5 | 1"_s);
    const QString ohnePreise = u"Pos. Artikel Menge Einheit"_s;
    const QString mitPreisen = ohnePreise + u" Preis je EURO"_s;
    struct Fall {
        int zeile;
        QString anschrift;
        QStringList mit, ohne; // the table with prices asked for, and without
    };
    const Fall faelle[] = {
        {0,
         u"Berger Franz"_s,
         {mitPreisen, u"1 A 3,00 dt 10,00 100 dt 0,30"_s, u"2 B 3,00 dt 10,00 dt 30,00"_s,
          u"3 C 3,00 dt 10,00 dt 30,00"_s, u"4 D 3,00 10,00 30,00"_s, u"5 E 3,00 dt 0,1234 1,5 dt 0,25"_s,
          u"6 F -3,00 dt 10,00 dt -30,00"_s, u"7 G 12,50 dt 0,25 dt 3,13"_s, u"8 H -12,50 dt 0,25 dt -3,13"_s,
          u"Summe in EURO 60,55"_s},
         {ohnePreise, u"1 A 3,00 dt"_s, u"2 B 3,00 dt"_s, u"3 C 3,00 dt"_s, u"4 D 3,00"_s, u"5 E 3,00 dt"_s,
          u"6 F -3,00 dt"_s, u"7 G 12,50 dt"_s, u"8 H -12,50 dt"_s}},
        {8,
         u"Berger Franz"_s,
         {mitPreisen, u"1 G 3,00 dt"_s, u"2 H 2,00 dt 7,00 dt 14,00"_s,
          u"Summe in EURO der Positionen mit Preis 14,00"_s},
         {ohnePreise, u"1 G 3,00 dt"_s, u"2 H 2,00 dt"_s}},
        {10,
         u"Berger Franz"_s,
         {ohnePreise, u"1 I 3,00 dt"_s, u"2 J 0,0004 dt"_s},
         {ohnePreise, u"1 I 3,00 dt"_s, u"2 J 0,0004 dt"_s}},
        {12, u"GAST"_s, {mitPreisen, u"1 K 1,00 5,00 5,00"_s, u"Summe in EURO 5,00"_s}, {ohnePreise, u"1 K 1,00"_s}},
    };
    oeffne();
    for (const bool preise : {false, true}) {
        if (preise) feld<CheckBox>("chkPreis").click();
        for (const Fall& fall : faelle) {
            SCOPED_TRACE(testing::Message() << fall.zeile << (preise ? " with prices" : " without"));
            waehle(fall.zeile);
            const auto seiten = drucke();
            ASSERT_EQ(seiten.size(), 1u);
            const QStringList& seite = seiten[0];
            EXPECT_EQ(seite[3], fall.anschrift + u" Lieferschein"_s);
            const qsizetype kopf = seite.indexOf(preise ? fall.mit[0] : fall.ohne[0]);
            EXPECT_EQ(seite.mid(kopf, seite.size() - kopf - 2), preise ? fall.mit : fall.ohne);
        }
    }
}

TEST_F(Lieferscheinfenster, JedeLieferungHatNurIhreEigenenZeilen)
{
    NEEDS_PDFTOTEXT;
    verkauft(
        u"01.05. | BERGER | Heu | 3 | dt\n01.05. | ADLER | Stroh | 4 | dt\n02.05. 14:30 | BERGER | Hafer | 5 | dt"_s);
    hof.bucht(2024, "01.05. | H1 | Weizen | 9 | Zukauf");
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Uberstallt_alt = 'BERGER' WHERE Buchungsart = 'Zukauf'"_s);
    oeffne();
    verkauft(u"01.05. | BERGER | Mais | 6 | dt"_s); // when the day's note had its number already
    waehle(0);
    tippe("Text1", u"Danke"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
    EXPECT_EQ(feld<DataGrid>("SSDBGrid1").currentIndex().row(), 0) << "F5 leaves the choice";
    EXPECT_EQ(einstellungen()[0].section(u" | "_s, 4, 4), u"Danke"_s) << "and keeps what was typed";
    const QString positionen[] = {u"1 Stroh 4,00 dt"_s, u"1 Heu 3,00 dt"_s, u"1 Mais 6,00 dt"_s, u"1 Hafer 5,00 dt"_s};
    for (int zeile = 0; zeile < 4; ++zeile) {
        SCOPED_TRACE(zeile);
        waehle(zeile);
        const auto seiten = drucke();
        ASSERT_EQ(seiten.size(), 1u);
        const qsizetype kopf = seiten[0].indexOf(u"Pos. Artikel Menge Einheit"_s);
        EXPECT_EQ(seiten[0].mid(kopf + 1, 2), (QStringList{positionen[zeile], u"Danke"_s}));
    }
}

TEST_F(Lieferscheinfenster, EinLangerLieferscheinGehtUeberSeiten)
{
    NEEDS_PDFTOTEXT;
    QStringList zeilen;
    for (int i = 1; i <= 60; ++i)
        zeilen.append(u"01.05. | BERGER | Ware "_s + QString::number(i) + u" | 1 | kg | 2 | 1"_s);
    verkauft(zeilen.join(u'\n'));
    oeffne();
    feld<CheckBox>("chkPreis").click();
    tippe("Text1", QString(u"Die Ware bleibt bis zur Bezahlung unser Eigentum. "_s).repeated(10));
    for (const QString& formular : {u"Standardlieferschein.rpt"_s, u"LieferscheinA5.rpt"_s}) {
        SCOPED_TRACE(formular.toStdString());
        tippe("drpFormular", formular);
        const auto seiten = drucke();
        ASSERT_GE(seiten.size(), 2u);
        QStringList waren;
        for (const QStringList& seite : seiten) {
            const QStringList hier = seite.filter(u"Ware "_s).filter(u"kg"_s);
            waren += hier;
            EXPECT_EQ(seite.filter(u"Preis je EURO"_s).size(), hier.isEmpty() ? 0 : 1) << "the head of the table";
            EXPECT_EQ(seite.filter(u"Summe in EURO 120,00"_s).size(), hier.filter(u"Ware 60 "_s).size());
            const bool letzte = &seite == &seiten.back();
            EXPECT_EQ(seite.filter(u"Übergeben"_s).size(), letzte ? 1 : 0);
            EXPECT_EQ(seite[0].startsWith(u"Lieferschein 1 vom 01.05.2024"_s), &seite != &seiten.front());
        }
        EXPECT_EQ(waren.size(), 60);
        EXPECT_GT(seiten.back().filter(u"Eigentum"_s).size(), 0) << "the signatures do not stand alone";
    }
}

TEST_F(Lieferscheinfenster, DieDruckdateiHatWasFormulareBrauchen)
{
    verkauft(u"01.05. | BERGER | Heu | 3 | dt | 4 | 1"_s);
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Artikelart = 'Futtermittel', Einheit = '', Menge = NULL"_s);
    oeffne();
    tippe("Text2(0)", u"  Hof  "_s);
    tippe("Text2(1)", u"   "_s);
    EXPECT_FALSE(drucke().empty());
    const auto datei = jet::engine().OpenDatabase(feld<report::PrintControl>("Report").DataFiles(0));
    EXPECT_EQ(gezeigt(*datei, u"SELECT * FROM Uberschrift"_s),
              QStringList(u"NULL | Hof | NULL | NULL | 01.05.2024 | BERGER | 1 | NULL"_s));
    EXPECT_EQ(gezeigt(*datei, u"SELECT * FROM Journal"_s),
              QStringList(u"NULL | Heu | Futtermittel | 0 | NULL | NULL | NULL"_s));
    EXPECT_EQ(
        gezeigt(*datei, u"SELECT Ort FROM HANDLER INNER JOIN Uberschrift ON HANDLER.KurzKu = Uberschrift.Kurzku"_s),
        QStringList(u"Musterdorf"_s));
}

TEST_F(Lieferscheinfenster, VorgabenKommenAusDenEinstellungenDesBenutzers)
{
    verkauft(u"01.05. | BERGER | Heu | 3"_s);
    const QString abschnitt = u"Lagerverwaltung"_s;
    sys::SaveSetting(abschnitt, u"Lieferscheinformular"_s, u" "_s);
    sys::SaveSetting(abschnitt, u"LieferscheinZeile1"_s, QString(120, u'x'));
    sys::SaveSetting(abschnitt, u"LieferscheinZusatztext"_s, u"Danke"_s);
    sys::SaveSetting(abschnitt, u"LieferscheinMitPreis"_s, u"True"_s);
    oeffne();
    EXPECT_EQ(feld<ComboBox>("drpFormular").Text(), u"Standardlieferschein.rpt"_s);
    schliesse();
    EXPECT_EQ(einstellungen(), QStringList(u"Standardlieferschein.rpt | "_s + QString(100, u'x') +
                                           u" | Lindenau 3, 4799 Beispielau |  | Danke | -1"_s));
}

TEST_F(Lieferscheinfenster, OhneVerkaeufeSagtErWasZuTunIst)
{
    verkauft(u"01.05. |   | Heu | 3"_s);
    oeffne();
    const QStringList hinweis(u"Lieferscheine können für Verkaufsbuchungen ausgedruckt werden. Dabei werden Bewegungen"
                              u" desselben Empfängers und desselben Datums zusammengefasst."_s);
    EXPECT_EQ(hof.meldungen().abgeholt(), hinweis);
    EXPECT_FALSE(feld<QPushButton>("Command2").isVisible());
    EXPECT_EQ(feld<DataGrid>("SSDBGrid1").Caption(), u"0 Lieferung(en)"_s);
    QEvent aktiviert(QEvent::WindowActivate);
    QCoreApplication::sendEvent(fenster.get(), &aktiviert);
    QCoreApplication::processEvents();
    EXPECT_EQ(hof.meldungen().abgeholt(), QStringList()) << "said once";

    verkauft(u"01.05. | BERGER | Heu | 3"_s); // another program books meanwhile
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
    EXPECT_EQ(feld<DataGrid>("SSDBGrid1").Caption(), u"1 Lieferung(en)"_s);
    EXPECT_TRUE(feld<QPushButton>("Command2").isVisible());
    if (!canReadPdf()) return;
    EXPECT_EQ(drucke().size(), 1u);
    auto& liste = feld<DataGrid>("SSDBGrid1");
    const QString datei = feld<report::PrintControl>("Report").DataFiles(0);
    feld<report::PrintControl>("Report").setDataFiles(0, {});
    QTest::mouseDClick(liste.viewport(), Qt::LeftButton, {}, liste.visualRect(liste.model()->index(0, 0)).center());
    EXPECT_EQ(feld<report::PrintControl>("Report").DataFiles(0), datei) << "a double click prints as well";
}
