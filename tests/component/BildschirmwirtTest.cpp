// The loadable library in a host with a screen.

#include "tests/platform/system/Rekorder.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/DatabaseError.h>
#include <zablager/Lagerverwaltungsdaten.h>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

TEST(Bildschirmwirt, SiehtMeldungenUndDenBildschirmUndFragtInzwischenBestaende)
{
    Testbetrieb hof;
    hof.bucht(2024, "05.03. | H1 | Weizen | 100 | Zukauf");
    hof.bucht(2025, "05.03. | H1 | Hafer | 1 | Zukauf\n06.03. | H2 | Hafer | 1 | Zukauf");
    QPluginLoader loader(QStringLiteral(ZABLAGER_LIBRARY));
    auto* const zablager = qobject_cast<IZablager*>(loader.instance());
    const auto lager = zablager->erzeuge();
    lager->setBetriebsnummer(u"4711"_s);
    lager->setStichdatum(QDate(2025, 6, 1));
    lager->setDatenverzeichnis(hof.journaldatei(2025));
    lager->Kontrolle_LagerbestandLaden();

    Meldungsprotokoll protokoll; // only for hosts without a screen
    zablager->setzeMeldungen(&protokoll);
    imNaechstenFenster([&](QWidget& fenster) {
        const auto* const box = qobject_cast<QMessageBox*>(&fenster);
        EXPECT_EQ(box ? box->text() : u""_s,
                  u"Der Dateiname "_s + hof.journaldatei(2019) + u" existiert nicht!"_s);
        tippe(u"{Eingabe}");
    });
    EXPECT_EQ(lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2019, 1, 1)), 0);
    EXPECT_EQ(dynamic_cast<QObject&>(*lager).property("LetzterFehler"), u""_s);
    EXPECT_EQ(protokoll.abgeholt(), QStringList());
    zablager->setzeMeldungen(nullptr);

    QFile hilfe(hof.ort().programm() + u"/ZAB Hilfe/Lagerverwaltung.chm"_s); // of the family, before our own
    ASSERT_TRUE(QDir().mkpath(QFileInfo(hilfe).path()) && hilfe.open(QIODevice::WriteOnly));
    Rekorder oeffner(u"xdg-open"_s);
    imNaechstenFenster([&](QWidget& fenster) {
        EXPECT_EQ(fenster.windowTitle(), u"Lagerverwaltung des Betriebes 4711 , "_s);
        for (const auto& feld :
             {u"Journalliste"_s, u"VonDatum"_s, u"drpArtikel"_s, u"chkNurSumme"_s, u"SSTab1"_s}) {
            fenster.findChild<QWidget*>(feld)->setFocus();
            tippe(u"{F1}");
            EXPECT_EQ(oeffner.aufruf(), QStringList{hilfe.fileName()}) << feld.toStdString();
        }
        fenster.findChild<QWidget*>(u"drpLagerOrte"_s)->setProperty("Text", u"H2"_s); // as a user's choice
        EXPECT_EQ(fenster.findChild<QWidget*>(u"Journalliste"_s)->property("Caption"), u"1 Bewegung"_s);
        EXPECT_EQ(lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2024, 12, 31)), 100);
        EXPECT_THROW(lager->LagerbestandLaden(), jet::Error); // there is one screen
        EXPECT_THROW(zablager->erzeuge()->Kontrolle_LagerbestandLaden(),
                     jet::Error); // would book into its farm
        fenster.close();
    });
    lager->LagerbestandLaden();
    EXPECT_EQ(hof.journal(2025).size(), 2); // opening a year carries nothing into it
    imNaechstenFenster([](QWidget& fenster) { fenster.close(); });
    lager->LagerbestandLaden(); // and again
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
