// What hosts rely on that were built against an earlier library, and those that let it go.

#include "tests/component/Bibliothek.h"
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
    // clang-format off
    const std::ptrdiff_t plaetze[] = {
        platz(&L::setBetriebsadresse), platz(&L::Betriebsadresse), platz(&L::setBetriebsnummer),
        platz(&L::Betriebsnummer), platz(&L::setBetriebsname), platz(&L::Betriebsname), platz(&L::Get_Bestand),
        platz(&L::setStammverzeichnis), platz(&L::Stammverzeichnis), platz(&L::setHerkunft), platz(&L::Herkunft),
        platz(&L::setAnlagenpasswort), platz(&L::Anlagenpasswort), platz(&L::setAnlagenverzeichnis),
        platz(&L::Anlagenverzeichnis), platz(&L::setWaehrung), platz(&L::Währung), platz(&L::setLagerpasswort),
        platz(&L::setBetriebpasswort), platz(&L::Lagerpasswort), platz(&L::Betriebpasswort),
        platz(&L::LagerbestandRechnen), platz(&L::LagerbestandLaden), platz(&L::Kontrolle_LagerbestandLaden),
        platz(&L::setDatenverzeichnis), platz(&L::Datenverzeichnis), platz(&L::setStichdatum), platz(&L::Stichdatum),
        platz(&L::setArtikelname), platz(&L::Artikelname), platz(&L::setLagername), platz(&L::Lagername),
    };
    // clang-format on
    for (std::size_t i = 0; i < std::size(plaetze); ++i)
        EXPECT_EQ(plaetze[i], std::ptrdiff_t(i));
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
    lager->setProperty("Stichdatum", QDate(2023, 1, 1));
    QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden");
    EXPECT_EQ(bestand(*lager, "QDate", u"Weizen"_s, QDate(2024, 1, 31)), 120.5);
    EXPECT_EQ(bestand(*lager, "QDateTime", u"Weizen"_s, QDateTime(QDate(2024, 2, 1), QTime(13, 45))), 100.5);
}
