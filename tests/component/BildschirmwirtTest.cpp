// The loadable library in a host with a screen.

#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"
#include "tests/support/Rekorder.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/DatabaseError.h>
#include <zablager/Lagerverwaltungsdaten.h>

#include <QDir>
#include <QMessageBox>
#include <QPluginLoader>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Bildschirmwirt : public testing::Test {
protected:
    Bildschirmwirt() { lager->setBetriebsnummer(u"4711"_s); }

    /// What the next message box says; it is left by Enter.
    void lese(QString& text)
    {
        imNaechstenFenster([&text](QWidget& fenster) {
            if (const auto* box = qobject_cast<QMessageBox*>(&fenster)) text = box->text();
            QTest::keyClick(&fenster, Qt::Key_Return);
        });
    }

    Testbetrieb hof;
    QPluginLoader loader{QStringLiteral(ZABLAGER_LIBRARY)};
    IZablager* const zablager = qobject_cast<IZablager*>(loader.instance());
    const std::unique_ptr<_Lagerverwaltungsdaten> lager = zablager->erzeuge();
};

} // namespace

TEST_F(Bildschirmwirt, BekommtMeldungenAlsFenster)
{
    Meldungsprotokoll protokoll;
    zablager->setzeMeldungen(&protokoll); // only for hosts without a screen
    QString text;
    lager->setStichdatum(QDate(2024, 1, 1));
    lager->Kontrolle_LagerbestandLaden();
    lese(text);
    EXPECT_EQ(lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2019, 1, 1)), 0);
    EXPECT_EQ(text, u"Der Dateiname "_s + hof.journaldatei(2019) + u" existiert nicht!"_s);
    EXPECT_EQ(dynamic_cast<QObject&>(*lager).property("LetzterFehler"), u""_s);
    lese(text);
    lager->setBetriebsnummer(u"x"_s);
    lager->Kontrolle_LagerbestandLaden();
    EXPECT_EQ(text, u"Kein Betrieb in der Registrierung eingestellt!"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); // the hourglass of the carry-forward
    EXPECT_EQ(protokoll.abgeholt(), QStringList());
    zablager->setzeMeldungen(nullptr);
}

TEST_F(Bildschirmwirt, OeffnetDenBildschirmUndFragtInzwischenBestaende)
{
    hof.bucht(2024, "05.03. | H1 | Weizen | 100 | Zukauf");
    lager->setStichdatum(QDate(2025, 6, 1));
    lager->setDatenverzeichnis(hof.journaldatei(2025));                      // not there yet
    QFile hilfe(hof.ort().programm() + u"/ZAB Hilfe/Lagerverwaltung.chm"_s); // of the family, before our own
    ASSERT_TRUE(QDir().mkpath(QFileInfo(hilfe).path()) && hilfe.open(QIODevice::WriteOnly));
    Rekorder oeffner(u"xdg-open"_s);
    QString titel, info;
    imNaechstenFenster([&](QWidget& fenster) {
        titel = fenster.windowTitle();
        for (const auto& feld : {u"Journalliste"_s, u"VonDatum"_s, u"drpArtikel"_s, u"chkNurSumme"_s, u"SSTab1"_s}) {
            fenster.findChild<QWidget*>(feld)->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
            EXPECT_EQ(oeffner.aufruf(), QStringList{hilfe.fileName()}) << feld.toStdString();
        }
        EXPECT_EQ(lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2024, 12, 31)), 100);
        EXPECT_THROW(lager->LagerbestandLaden(), jet::Error); // there is one screen
        lese(info);
        fenster.findChild<QAction*>(u"M_Info"_s)->trigger();
        fenster.close();
    });
    lager->LagerbestandLaden();
    EXPECT_EQ(titel, u"Lagerverwaltung des Betriebes 4711 , "_s);
    EXPECT_TRUE(info.startsWith(u"ZABLAGER "_s)) << info.toStdString();
    EXPECT_EQ(hof.journal(2025).size(), 0); // opening a year carries nothing into it
    imNaechstenFenster([](QWidget& fenster) { fenster.close(); });
    lager->LagerbestandLaden(); // and again
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
