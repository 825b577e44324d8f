// What hosts rely on that were built against an earlier library, those that let it go, and those that hand over something
// by mistake: none of it ends the process or changes a file, and the next right call is answered.

#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/Lagerverwaltungsdaten.h>

#include <QPluginLoader>

#include <cstring>
#include <iterator>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The library loaded as a host does, and a farm of two years. A test may not name the state of the library: it is not the
/// one that the tests are linked with.
class Bibliothek : public testing::Test {
protected:
    Bibliothek()
    {
        hof.bucht(2023, "30.06. | H1 | Weizen | 120,5 | Ernte");
        hof.bucht(2024, "01.02. | H1 | Weizen | -20 | Verkauf");
        EXPECT_TRUE(wurzel) << loader.errorString().toStdString();
    }

    std::unique_ptr<QObject> objekt(const QString& klasse = QStringLiteral("ZABLAGER.Lagerverwaltungsdaten")) const
    {
        QObject* neu = nullptr;
        EXPECT_TRUE(
            QMetaObject::invokeMethod(wurzel, "CreateObject", Q_RETURN_ARG(QObject*, neu), Q_ARG(QString, klasse)));
        return std::unique_ptr<QObject>(neu);
    }

    Testbetrieb hof{QDate(2023, 1, 1)};
    QPluginLoader loader{QStringLiteral(ZABLAGER_LIBRARY)};
    QObject* const wurzel = loader.instance();
};

/// A late-bound stock question; `Tag` is QDate or QDateTime.
template <class Tag>
double bestand(QObject& lager, const char* art, const QString& artikel, const Tag& tag)
{
    double menge = -1;
    EXPECT_TRUE(QMetaObject::invokeMethod(&lager, "Get_Bestand", Q_RETURN_ARG(double, menge), Q_ARG(QString, artikel),
                                          Q_ARG(QString, QStringLiteral("H1")), QGenericArgument(art, &tag)));
    return menge;
}

class FalscheEingaben : public Bibliothek {
protected:
    FalscheEingaben() { frageRichtig(); }
    ~FalscheEingaben() override
    {
        frageRichtig();
        EXPECT_EQ(hof.journal(2023).size() + hof.journal(2024).size(), 2);
    }

    void frageRichtig() const
    {
        lager->setProperty("Betriebsnummer", u"4711"_s);
        lager->setProperty("Stichdatum", QDate(2024, 1, 1)); // the last year: nothing to carry
        uebertrage();
        EXPECT_EQ(nummer(), 0) << text();
        EXPECT_EQ(weizen(), 120.5);
    }
    void uebertrage() const { QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden"); }
    double weizen() const { return bestand(*lager, "QDate", u"Weizen"_s, QDate(2023, 12, 31)); }
    int nummer() const { return lager->property("LetzteFehlernummer").toInt(); }
    std::string text() const { return lager->property("LetzterFehler").toString().toStdString(); }

    const std::unique_ptr<QObject> lager = objekt();
};

const QString Lang(100'000, u'w');
const QString MitNul = u"Wei\0zen"_s;
const QString HalbesZeichen = QString(QChar(0xD800));

} // namespace

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

TEST_F(FalscheEingaben, EineUnbekannteEigenschaftSperrtDasObjekt)
{
    EXPECT_FALSE(lager->setProperty("Lagername1", u"H1"_s));
    EXPECT_EQ(weizen(), 0);
    EXPECT_EQ(text(), "Objekt unterstützt diese Eigenschaft oder Methode nicht: 'Lagername1'");
    EXPECT_EQ(nummer(), 438);
    uebertrage();
    EXPECT_EQ(nummer(), 438);
    EXPECT_FALSE(lager->setProperty("Lagername1", QVariant()));
    EXPECT_EQ(weizen(), 120.5);
    EXPECT_EQ(nummer(), 0);
}

TEST_F(FalscheEingaben, EineFremdeArtWirdUmgewandeltOderAendertNichts)
{
    struct Fall {
        const char* eigenschaft;
        QVariant wert;
        bool genommen;
        QString danach;
    };
    const Fall faelle[] = {
        {"Stichdatum", u"1.1.2024"_s, false, u"2023-02-03"_s},
        {"Stichdatum", 45'000, false, u"2023-02-03"_s},
        {"Stichdatum", u"2023-01-01"_s, true, u"2023-01-01"_s},
        {"Stichdatum", QDateTime(QDate(2023, 1, 2), QTime(23, 59)), true, u"2023-01-02"_s},
        {"Stichdatum", QVariant(), true, u"2023-02-03"_s}, // taken by Qt, refused by the object with number 5
        {"Lagername", 4711, true, u"4711"_s},
        {"Lagername", QByteArray("Mühle"), true, u"Mühle"_s},
        {"Lagername", QVariant(), true, u""_s},
        {"Lagername", QVariantList{1}, false, u"vorher"_s},
        {"LetzterFehler", u"nur zu lesen"_s, false, u""_s},
    };
    for (const Fall& fall : faelle) {
        lager->setProperty("Lagername", u"vorher"_s);
        lager->setProperty("Stichdatum", QDate(2023, 2, 3));
        EXPECT_EQ(lager->setProperty(fall.eigenschaft, fall.wert), fall.genommen) << fall.eigenschaft;
        EXPECT_EQ(lager->property(fall.eigenschaft).toString(), fall.danach) << fall.eigenschaft;
    }
}

TEST_F(FalscheEingaben, EineUnmoeglicheBetriebsnummerHatKeineDateien)
{
    for (const QString& betrieb : {QString(), Lang, MitNul, HalbesZeichen, u"..\\..\\B4711"_s, u"'"_s}) {
        lager->setProperty("Betriebsnummer", betrieb);
        uebertrage();
        EXPECT_EQ(weizen(), 0) << betrieb.left(20).toStdString();
        EXPECT_EQ(nummer(), 0);
        EXPECT_TRUE(QString::fromStdString(text()).endsWith(u"existiert nicht!"_s)) << text();
    }
}
