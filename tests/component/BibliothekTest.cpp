// The loadable library in a host without a screen that calls by names. A test may not name the library's
// state: it is not that of the core which the test is linked with.

#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/Lagerverwaltungsdaten.h>

#include <QDir>
#include <QPluginLoader>

#include <cstring>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

class Bibliothek : public testing::Test {
protected:
    Bibliothek()
    {
        hof.bucht(2023, "30.06. | H1 | Weizen | 120,5 | Ernte");
        QObject* neu = nullptr;
        for (const QString& klasse : {u"ZABLAGER.Ampel"_s, u"ZABLAGER.Lagerverwaltungsdaten"_s})
            EXPECT_TRUE(QMetaObject::invokeMethod(loader.instance(), "CreateObject",
                                                  Q_RETURN_ARG(QObject*, neu), Q_ARG(QString, klasse)));
        EXPECT_EQ(loader.instance()->property("LetzterFehler"), u""_s); // of the last one
        lager.reset(neu);
        lager->setProperty("Stichdatum", QDate(2023, 1, 1));
        fragtRichtig();
    }

    template <class Tag>
    double bestand(const QString& artikel, const Tag& tag) const
    {
        double menge = -1;
        QMetaObject::invokeMethod(lager.get(), "Get_Bestand", Q_RETURN_ARG(double, menge),
                                  Q_ARG(QString, artikel), Q_ARG(QString, u"H1"_s),
                                  QGenericArgument(QMetaType::fromType<Tag>().name(), &tag));
        return menge;
    }
    int nummer() const { return lager->property("LetzteFehlernummer").toInt(); }
    QString text() const { return lager->property("LetzterFehler").toString(); }

    /// What a host does that makes no mistake.
    void fragtRichtig() const { EXPECT_EQ(fragt(u"4711"_s, u"Weizen"_s), u"0, 120.5: 0"_s); }
    /// The number of a carry-forward; a stock, its number and the beginning of its text.
    QString fragt(const QString& betrieb, const QString& artikel) const
    {
        lager->setProperty("Betriebsnummer", betrieb);
        QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden");
        const int uebertrag = nummer();
        const double menge = bestand(artikel, QDate(2023, 12, 31));
        return u"%1, %2: %3 %4"_s.arg(uebertrag).arg(menge).arg(nummer()).arg(text().left(15)).trimmed();
    }

    Testbetrieb hof{QDate(2023, 1, 1)};
    QPluginLoader loader{QStringLiteral(ZABLAGER_LIBRARY)};
    std::unique_ptr<QObject> lager;
};

} // namespace

// Hosts that were built earlier call through the function table: a function that changes its place is another
// function to them. A pointer to a virtual function holds its place in the table.
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
        platz(&L::Betriebsnummer), platz(&L::setBetriebsname), platz(&L::Betriebsname),
        platz(&L::Get_Bestand), platz(&L::setStammverzeichnis), platz(&L::Stammverzeichnis),
        platz(&L::setHerkunft), platz(&L::Herkunft), platz(&L::setAnlagenpasswort),
        platz(&L::Anlagenpasswort), platz(&L::setAnlagenverzeichnis), platz(&L::Anlagenverzeichnis),
        platz(&L::setWaehrung), platz(&L::Währung), platz(&L::setLagerpasswort),
        platz(&L::setBetriebpasswort), platz(&L::Lagerpasswort), platz(&L::Betriebpasswort),
        platz(&L::LagerbestandRechnen), platz(&L::LagerbestandLaden), platz(&L::Kontrolle_LagerbestandLaden),
        platz(&L::setDatenverzeichnis), platz(&L::Datenverzeichnis), platz(&L::setStichdatum),
        platz(&L::Stichdatum), platz(&L::setArtikelname), platz(&L::Artikelname), platz(&L::setLagername),
        platz(&L::Lagername),
    };
    // clang-format on
    for (std::size_t i = 0; i < std::size(plaetze); ++i)
        EXPECT_EQ(plaetze[i], std::ptrdiff_t(i));
}

TEST_F(Bibliothek, ObjekteUeberlebenDasEntladen)
{
    hof.bucht(2024, "01.02. | H1 | Weizen | -20 | Verkauf");
    {
        Meldungsprotokoll protokoll; // a place for messages that goes with the host's own code
        qobject_cast<IZablager*>(loader.instance())->setzeMeldungen(&protokoll);
        EXPECT_EQ(bestand(u"Weizen"_s, QDate(2019, 1, 31)), 0);
        EXPECT_EQ(protokoll.abgeholt().size(), 1);
        loader.setLoadHints({}); // Qt would keep the library in memory all the same
        ASSERT_TRUE(loader.unload());
    }
    EXPECT_EQ(bestand(u"Weizen"_s, QDate(2019, 1, 31)), 0);
    EXPECT_TRUE(text().endsWith(u"existiert nicht!"_s)) << text().toStdString();
    fragtRichtig();
    EXPECT_EQ(bestand(u"Weizen"_s, QDate(2024, 1, 31)), 120.5);
    EXPECT_EQ(bestand(u"Weizen"_s, QDateTime(QDate(2024, 2, 1), QTime(13, 45))), 100.5);
}

TEST_F(Bibliothek, VerweigertUnbekannteEigenschaften)
{
    EXPECT_FALSE(lager->setProperty("Lagername1", u"H1"_s)); // Qt adds it
    EXPECT_EQ(fragt(u"4711"_s, u"Weizen"_s), u"438, 0: 438 Objekt unterstü"_s);
    EXPECT_TRUE(text().endsWith(u"diese Eigenschaft oder Methode nicht: 'Lagername1'"_s));
    EXPECT_FALSE(lager->setProperty("Lagername1", QVariant()));
    fragtRichtig();
}

// None of it ends the process or changes a file, and the next right call is answered.
TEST_F(Bibliothek, BeantwortetFalscheFragenMitNummerOderText)
{
    const QString lang(100'000, u'w'); // no directory can be so long
    const QString mitNul = u"Wei\0zen"_s;
    const QString halbesZeichen = QChar(0xD800);
    EXPECT_EQ(fragt(lang, u"Weizen"_s), u"75, 0: 0 Der Dateiname /"_s);
    for (const QString& betrieb : {QString(), mitNul, halbesZeichen, u"..\\..\\B4711"_s})
        EXPECT_EQ(fragt(betrieb, u"Weizen"_s), u"0, 0: 0 Der Dateiname /"_s) << betrieb.toStdString();
    EXPECT_EQ(fragt(u"4711"_s, lang), u"0, 0: 0"_s);
    EXPECT_EQ(fragt(u"4711"_s, halbesZeichen), u"0, 0: 0"_s);
    EXPECT_EQ(fragt(u"4711"_s, mitNul), u"0, 0: 3075 Syntaxfehler in"_s);

    const QByteArray hier = qgetenv("XDG_CONFIG_HOME"); // settings that cannot be read are no other farm
    const QString ordner = hof.ort().daten() + u"/ordner"_s;
    ASSERT_TRUE(QDir().mkpath(ordner + u"/ZAB - Programme.ini"_s));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(ordner));
    EXPECT_EQ(fragt(u"4711"_s, u"Weizen"_s), u"75, 0: 75 Fehler beim Zug"_s);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(ordner + u"/neu"_s)); // there are none yet
    EXPECT_EQ(fragt(u"4711"_s, u"Weizen"_s), u"0, 0: 0 Der Dateiname x"_s);
    qputenv("XDG_CONFIG_HOME", hier);
    fragtRichtig();
    EXPECT_EQ(hof.journal(2023), zeilen("30.06. | H1 | Weizen | 120,5 | Ernte"));
}
