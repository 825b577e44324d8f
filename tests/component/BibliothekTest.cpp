// The loadable library as hosts without a screen use it: loaded by path, early-bound and late-bound.

#include "tests/component/Bibliothek.h"
#include "platform/system/Application.h"
#include "tests/support/Print.h"

#include <cstring>
#include <iterator>

using namespace Qt::StringLiterals;

// Hosts that were built earlier call through the function table: a function that changes its place is another function
// to them. A pointer to a virtual function holds its place in the table.
TEST(Schnittstelle, JedeFunktionBehaeltIhrenPlatz)
{
    using L = _Lagerverwaltungsdaten;
    const auto platz = [](auto funktion) {
        std::ptrdiff_t teile[2];
        static_assert(sizeof teile == sizeof funktion);
        std::memcpy(teile, &funktion, sizeof teile);
        return (teile[0] - 1) / std::ptrdiff_t(sizeof(void*)) - 2; // behind the two entries of the destructor
    };
    const std::ptrdiff_t plaetze[] = {platz(&L::setBetriebsadresse),
                                      platz(&L::Betriebsadresse),
                                      platz(&L::setBetriebsnummer),
                                      platz(&L::Betriebsnummer),
                                      platz(&L::setBetriebsname),
                                      platz(&L::Betriebsname),
                                      platz(&L::Get_Bestand),
                                      platz(&L::setStammverzeichnis),
                                      platz(&L::Stammverzeichnis),
                                      platz(&L::setHerkunft),
                                      platz(&L::Herkunft),
                                      platz(&L::setAnlagenpasswort),
                                      platz(&L::Anlagenpasswort),
                                      platz(&L::setAnlagenverzeichnis),
                                      platz(&L::Anlagenverzeichnis),
                                      platz(&L::setWaehrung),
                                      platz(&L::Währung),
                                      platz(&L::setLagerpasswort),
                                      platz(&L::setBetriebpasswort),
                                      platz(&L::Lagerpasswort),
                                      platz(&L::Betriebpasswort),
                                      platz(&L::LagerbestandRechnen),
                                      platz(&L::LagerbestandLaden),
                                      platz(&L::Kontrolle_LagerbestandLaden),
                                      platz(&L::setDatenverzeichnis),
                                      platz(&L::Datenverzeichnis),
                                      platz(&L::setStichdatum),
                                      platz(&L::Stichdatum),
                                      platz(&L::setArtikelname),
                                      platz(&L::Artikelname),
                                      platz(&L::setLagername),
                                      platz(&L::Lagername)};
    for (std::size_t i = 0; i < std::size(plaetze); ++i)
        EXPECT_EQ(plaetze[i], std::ptrdiff_t(i));
}

TEST_F(Bibliothek, EinSpaetGebundenerWirtGehtDenGanzenWeg)
{
    const auto lager = objekt();
    EXPECT_NE(lager, objekt());
    EXPECT_EQ(lager->parent(), nullptr);
    EXPECT_TRUE(lager->setProperty("Betriebsnummer", u"4711"_s));
    EXPECT_TRUE(lager->setProperty("Währung", u"€"_s));
    EXPECT_EQ(lager->property("Währung"), u"€"_s);
    EXPECT_TRUE(lager->setProperty("Stichdatum", QDate(2023, 1, 1)));
    EXPECT_TRUE(QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden"));
    EXPECT_EQ(lager->property("LetzterFehler"), u""_s);

    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate(2024, 1, 31)), 120.5);
    EXPECT_EQ(bestand(*lager, "QDateTime", u"Weizen"_s, QDateTime(QDate(2024, 2, 1), QTime(13, 45))), 100.5);
    EXPECT_EQ(hof.journal(2024), zeilen("01.02. | H1 | Weizen | -20 | Verkauf\n"
                                        "01.01. | H1 | Weizen | 120,5 | Anfangsbestand"));
}

TEST_F(Bibliothek, SpaetGebundeneFehlerStehenImObjekt)
{
    const auto lager = objekt();
    lager->setProperty("Betriebsnummer", u"4711"_s);
    lager->setProperty("Stichdatum", QDate(2023, 1, 1));
    QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden");
    const auto nummer = [&] { return lager->property("LetzteFehlernummer").toInt(); };
    const auto text = [&] { return lager->property("LetzterFehler").toString(); };

    EXPECT_EQ(bestand(*lager, "QDate", u"Bauer's Mix"_s, QDate(2024, 1, 31)), 0);
    EXPECT_EQ(nummer(), 3075) << text().toStdString();
    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate()), 0);
    EXPECT_EQ(nummer(), 5) << text().toStdString();
    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate(2019, 1, 31)), 0);
    EXPECT_EQ(nummer(), 0); // a message, no failure
    EXPECT_EQ(text(), u"Der Dateiname "_s + hof.journaldatei(2019) + u" existiert nicht!"_s);
    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate(2024, 1, 31)), 120.5);
    EXPECT_EQ(text(), u""_s);
    lager->setProperty("Stichdatum", QDate());
    EXPECT_EQ(nummer(), 5) << text().toStdString();
    EXPECT_EQ(lager->property("Stichdatum"), QDate(2023, 1, 1));
    lager->setProperty("LetzterFehler", u"nur zu lesen"_s);
    EXPECT_NE(text(), u"nur zu lesen"_s);

    lager->setProperty("Betriebsnummer", u"x"_s);
    QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden");
    EXPECT_EQ(text(), u"Kein Betrieb in der Registrierung eingestellt!"_s);
    EXPECT_EQ(nummer(), 0);

    EXPECT_EQ(wurzel->property("Version"), sys::applicationVersion());
    EXPECT_EQ(objekt(u"ZABLAGER.Ampel"_s), nullptr);
    EXPECT_TRUE(wurzel->property("LetzterFehler").toString().contains(u"ZABLAGER.Ampel"_s));
}

TEST_F(Bibliothek, ObjekteUeberlebenDasEntladen)
{
    const auto lager = objekt();
    lager->setProperty("Betriebsnummer", u"4711"_s);
    {
        Meldungsprotokoll protokoll; // a place for messages that goes with the host's own code
        qobject_cast<IZablager*>(wurzel)->setzeMeldungen(&protokoll);
        loader.setLoadHints({}); // Qt would keep the library in memory all the same
        ASSERT_TRUE(loader.unload());
    }
    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate(2019, 1, 31)), 0);
    EXPECT_TRUE(lager->property("LetzterFehler").toString().endsWith(u"existiert nicht!"_s));
    QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden");
    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate(2024, 1, 31)), 120.5);
}
