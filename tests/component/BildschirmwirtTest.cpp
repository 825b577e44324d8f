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

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Bildschirmwirt, BekommtMeldungenAlsFenster)
{
    const Testbetrieb hof;
    QPluginLoader loader(QStringLiteral(ZABLAGER_LIBRARY));
    auto* const zablager = qobject_cast<IZablager*>(loader.instance());
    ASSERT_TRUE(zablager) << loader.errorString().toStdString();
    Meldungsprotokoll protokoll;
    zablager->setzeMeldungen(&protokoll); // only for hosts without a screen
    const auto lager = zablager->erzeuge();
    lager->setBetriebsnummer(u"4711"_s);
    lager->setStichdatum(QDate(2024, 1, 1));
    lager->Kontrolle_LagerbestandLaden();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    // The hourglass of the carry-forward waits while its message is read.
    QList<Qt::CursorShape> zeiger;
    imNaechstenFenster([&](QWidget& fenster) {
        QGuiApplication::restoreOverrideCursor(); // what the box has put over it
        if (const QCursor* darunter = QGuiApplication::overrideCursor()) zeiger.append(darunter->shape());
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        QTest::keyClick(&fenster, Qt::Key_Return);
    });
    lager->setBetriebsnummer(u"x"_s);
    lager->Kontrolle_LagerbestandLaden();
    EXPECT_EQ(zeiger, QList<Qt::CursorShape>{Qt::WaitCursor});
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    lager->setBetriebsnummer(u"4711"_s);
    lager->setStichdatum(QDate(2025, 1, 1));
    lager->Kontrolle_LagerbestandLaden();

    QString text;
    imNaechstenFenster([&](QWidget& fenster) {
        if (const auto* box = qobject_cast<QMessageBox*>(&fenster)) text = box->text();
        QTest::keyClick(&fenster, Qt::Key_Return);
    });
    EXPECT_EQ(lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2019, 1, 1)), 0);
    EXPECT_EQ(text, u"Der Dateiname "_s + hof.journaldatei(2019) + u" existiert nicht!"_s);
    EXPECT_EQ(protokoll.abgeholt(), QStringList());
    EXPECT_EQ(dynamic_cast<QObject&>(*lager).property("LetzterFehler"), u""_s);
    zablager->setzeMeldungen(nullptr);
}

TEST(Bildschirmwirt, OeffnetDenBildschirmUndFragtInzwischenBestaende)
{
    const Testbetrieb hof;
    hof.bucht(2024, "05.03. | H1 | Weizen | 100 | Zukauf");
    QPluginLoader loader(QStringLiteral(ZABLAGER_LIBRARY));
    auto* const zablager = qobject_cast<IZablager*>(loader.instance());
    ASSERT_TRUE(zablager);
    const auto lager = zablager->erzeuge();
    lager->setBetriebsnummer(u"4711"_s);
    lager->setStichdatum(QDate(2025, 6, 1));
    lager->setDatenverzeichnis(hof.journaldatei(2025)); // not there yet

    QString titel;
    imNaechstenFenster([&](QWidget& fenster) {
        titel = fenster.windowTitle();
        imNaechstenFenster([](QWidget& box) {
            EXPECT_TRUE(dynamic_cast<QMessageBox&>(box).text().startsWith(u"ZABLAGER "_s));
            QTest::keyClick(&box, Qt::Key_Return);
        });
        fenster.findChild<QAction*>(u"M_Info"_s)->trigger();
        EXPECT_EQ(lager->Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2024, 12, 31)), 100);
        EXPECT_THROW(lager->LagerbestandLaden(), jet::Error); // there is one screen
        fenster.close();
    });
    lager->LagerbestandLaden();
    EXPECT_EQ(titel, u"Lagerverwaltung des Betriebes 4711 , "_s);
    EXPECT_EQ(hof.journal(2025).size(), 0U); // opening a year carries nothing into it
    imNaechstenFenster([](QWidget& fenster) { fenster.close(); });
    lager->LagerbestandLaden(); // and again
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(Bildschirmwirt, BekommtMitF1UeberallDieHilfe)
{
    const Testbetrieb hof;
    hof.bucht(2024, "05.03. | H1 | Weizen | 12,5 | Zukauf");
    QPluginLoader loader(QStringLiteral(ZABLAGER_LIBRARY));
    auto* const zablager = qobject_cast<IZablager*>(loader.instance());
    ASSERT_TRUE(zablager) << loader.errorString().toStdString();
    const auto lager = zablager->erzeuge();
    lager->setBetriebsnummer(u"4711"_s);
    lager->setDatenverzeichnis(hof.journaldatei(2024));
    lager->setStichdatum(QDate(2024, 1, 1));

    QFile hilfedatei(hof.ort().programm() + u"/ZAB Hilfe/Lagerverwaltung.chm"_s);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(hilfedatei).path()));
    ASSERT_TRUE(hilfedatei.open(QIODevice::WriteOnly));
    const QString handbuch = QDir::cleanPath(QFileInfo(QStringLiteral(ZABLAGER_LIBRARY)).path() +
                                             u"/../share/doc/zablager/handbuch/hauptbildschirm.html"_s);
    Rekorder oeffner(u"xdg-open"_s);
    imNaechstenFenster([&](QWidget& fenster) {
        for (const auto& feld : {u"Journalliste"_s, u"VonDatum"_s, u"drpArtikel"_s, u"chkNurSumme"_s, u"SSTab1"_s}) {
            SCOPED_TRACE(feld.toStdString());
            fenster.findChild<QWidget*>(feld)->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
            EXPECT_EQ(oeffner.aufruf(), QStringList{hilfedatei.fileName()});
        }
        hilfedatei.remove();
        if (QFile::exists(handbuch)) { // where it could be built
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
            EXPECT_EQ(oeffner.aufruf(), QStringList{handbuch});
        }
        fenster.close();
    });
    lager->LagerbestandLaden();
}
