#include "core/Lagerverwaltungsdaten.h"

#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/DatabaseError.h>

#include <QMetaProperty>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Daten : public testing::Test {
protected:
    /// An object with every text property set to its own name.
    Daten()
    {
        const QMetaObject* const klasse = objekt.metaObject();
        for (int i = QObject::staticMetaObject.propertyCount(); i < klasse->propertyCount(); ++i) {
            const QMetaProperty eigenschaft = klasse->property(i);
            if (eigenschaft.metaType() != QMetaType::fromType<QString>() || !eigenschaft.isWritable()) continue;
            EXPECT_TRUE(eigenschaft.write(&objekt, QString::fromUtf8(eigenschaft.name())));
        }
    }

    Testbetrieb hof;
    Lagerverwaltungsdaten objekt{[] { return nullptr; }};
    _Lagerverwaltungsdaten& daten = objekt;
};

} // namespace

TEST_F(Daten, DerUebertragUebernimmtNurSeineWerte)
{
    modulzustand() = {};
    daten.setBetriebsnummer(u"4711"_s);
    daten.setStichdatum(QDate(2024, 6, 1));
    EXPECT_EQ(modulzustand().Stichdatum, QDate(2024, 6, 1)); // at once, for all objects
    EXPECT_EQ(modulzustand().Betriebsnummer, u""_s);         // only by a method
    daten.Kontrolle_LagerbestandLaden();

    const Modulzustand& z = modulzustand();
    EXPECT_EQ(z.Datenverzeichnis, hof.ort().daten());
    EXPECT_EQ(
        (QStringList{z.Lagerpasswort, z.Anlagenverzeichnis, z.Anlagenpasswort, z.Betriebpasswort, z.Betriebsnummer}),
        (QStringList{u"Lagerpasswort"_s, u"Anlagenverzeichnis"_s, u"Anlagenpasswort"_s, u"Betriebpasswort"_s,
                     u"4711"_s}));
    EXPECT_EQ((QStringList{z.Artikelname, z.Lagername, z.Jahr, z.Lagerdatei, z.Stammverzeichnis, z.Waehrung,
                           z.Betriebsname, z.Betriebsadresse, z.Herkunft}
                   .join(QString())),
              u""_s);
}

TEST_F(Daten, DerLetzteUebertragGiltFuerAlleObjekte)
{
    hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
    Lagerverwaltungsdaten anderes([] { return nullptr; });
    anderes.setBetriebsnummer(u"4711"_s);
    anderes.setStichdatum(QDate(2024, 6, 1));
    anderes.Kontrolle_LagerbestandLaden();
    EXPECT_EQ(daten.Get_Bestand(u"Weizen"_s, u"H1"_s, QDate(2024, 12, 31)), 100);
}

TEST_F(Daten, EinUnmoeglichesStichdatumWirdAbgelehnt)
{
    daten.setStichdatum(QDate(2024, 2, 29));
    EXPECT_THROW(daten.setStichdatum(QDate(2023, 2, 29)), jet::Error);
    EXPECT_EQ(modulzustand().Stichdatum, QDate(2024, 2, 29));
    EXPECT_EQ(daten.Stichdatum(), QDate(2024, 2, 29));
    EXPECT_EQ(Lagerverwaltungsdaten([] { return nullptr; }).Stichdatum(), QDate(1899, 12, 30));
}
