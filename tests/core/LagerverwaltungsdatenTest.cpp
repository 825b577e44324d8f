#include "core/Lagerverwaltungsdaten.h"

#include "platform/system/Files.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <QMetaProperty>

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
            if (eigenschaft.metaType() != QMetaType::fromType<QString>() || !eigenschaft.isWritable())
                continue;
            EXPECT_TRUE(eigenschaft.write(&objekt, QString::fromUtf8(eigenschaft.name())));
        }
    }

    static QString uebernommen() ///< What a method has handed on.
    {
        const Modulzustand& z = modulzustand();
        QStringList werte{z.Betriebsnummer, z.Lagerpasswort, z.Anlagenverzeichnis, z.Anlagenpasswort};
        werte << z.Betriebpasswort << z.Artikelname << z.Lagername << z.Stammverzeichnis << z.Waehrung;
        werte << z.Betriebsname << z.Betriebsadresse << z.Herkunft << z.Jahr;
        return werte.join(u' ').simplified();
    }

    Testbetrieb hof;
    int gezeigt = 0; ///< How often the main screen came.
    Lagerverwaltungsdaten::Anschluesse anschluesse{[] { return nullptr; }, [this] { ++gezeigt; }};
    Lagerverwaltungsdaten objekt{anschluesse};
    _Lagerverwaltungsdaten& daten = objekt;
};

} // namespace

TEST_F(Daten, JedeMethodeGibtNurIhreWerteWeiter)
{
    modulzustand() = {};
    daten.setBetriebsnummer(u"4711"_s);
    daten.setStichdatum(QDate(2024, 6, 1));
    EXPECT_EQ(modulzustand().Stichdatum, QDate(2024, 6, 1)); // at once, for all objects
    EXPECT_EQ(uebernommen(), QString());                     // only by a method
    daten.Kontrolle_LagerbestandLaden();
    EXPECT_EQ(uebernommen(), u"4711 Lagerpasswort Anlagenverzeichnis Anlagenpasswort Betriebpasswort"_s);

    modulzustand() = {};
    daten.setStichdatum(QDate(2025, 6, 1));
    daten.setDatenverzeichnis(hof.journaldatei(2025));
    modulzustand().Stichdatum = QDate(2019, 1, 1); // of another object
    daten.LagerbestandLaden();
    EXPECT_EQ(gezeigt, 1);
    EXPECT_EQ(uebernommen(), // the password of the farm only by a carry-forward
              u"4711 Lagerpasswort Anlagenverzeichnis Anlagenpasswort Artikelname Lagername Stammverzeichnis "
              u"Währung"
              u" Betriebsname Betriebsadresse Herkunft 2025"_s);
    EXPECT_EQ(modulzustand().Stichdatum, QDate(2025, 6, 1));
    EXPECT_EQ(modulzustand().Lagerdatei, hof.journaldatei(2025));
    EXPECT_EQ(modulzustand().Datenverzeichnis, hof.ort().daten());
    EXPECT_EQ(modulzustand().Hilfedatei, hof.ort().programm() + u"\\ZAB Hilfe\\Lagerverwaltung.chm"_s);
}

TEST_F(Daten, EineFehlendeVorlageBeendetDasLadenNachDenErstenWerten)
{
    modulzustand() = {};
    daten.setDatenverzeichnis(hof.journaldatei(2025));
    EXPECT_THROW(daten.LagerbestandLaden(), jet::Error); // no key date: the year would be 1899
    EXPECT_FALSE(sys::Exist(hof.journaldatei(2025)));
    EXPECT_EQ(modulzustand().Betriebsname, u""_s);

    const QString vorlage = hof.ort().programm() + u"/Lager.vorlage"_s;
    sys::FileCopy(vorlage, vorlage + u".weg"_s);
    sys::Kill(vorlage);
    daten.setStichdatum(QDate(2025, 6, 1));
    EXPECT_THROW(daten.LagerbestandLaden(), sys::FileError);
    EXPECT_TRUE(uebernommen().contains(u"Betriebsname Betriebsadresse 2025"_s))
        << uebernommen().toStdString();
    EXPECT_EQ(gezeigt, 0);
    sys::FileCopy(vorlage + u".weg"_s, vorlage);
    daten.LagerbestandLaden(); // no screen has stayed open
    EXPECT_EQ(gezeigt, 1);
}

// Hosts of the older generation know this call as one that fails; they ask Get_Bestand.
TEST_F(Daten, LagerbestandRechnenScheitertAnSeinerAnweisung)
{
    const QString gesperrt = hof.ort().verzeichnis() + u"/gesperrt"_s;
    jet::engine().CreateDatabase(gesperrt, u";pwd=halm"_s);
    daten.setDatenverzeichnis(gesperrt);
    daten.setStichdatum(QDate(2024, 12, 31));
    daten.setLagerpasswort(
        u";pwd=halm"_s); // not its object's counts, but the one that a method has handed on
    EXPECT_EQ(objekt.SpaeteBindung::LagerbestandRechnen(), 0);
    EXPECT_EQ(objekt.LetzteFehlernummer(), 3031);
    modulzustand().Lagerpasswort = u";pwd=halm"_s;
    EXPECT_EQ(objekt.SpaeteBindung::LagerbestandRechnen(), 0);
    EXPECT_EQ(objekt.LetzteFehlernummer(), 3075);
    EXPECT_EQ(objekt.LetzterFehler(),
              u"Syntaxfehler (fehlender Operator) in Abfrageausdruck "
              u"'(((Lagerjournal.LagerortKurzKu)='Lagername') AND"
              u" ((Lagerjournal.Artikel)='Artikelname') AND AND ((Lagerjournal.Datum)<#12/31/2024#)))'."_s);
}

TEST_F(Daten, DasZuletztGesetzteStichdatumGiltFuerAlleObjekte)
{
    hof.bucht(2024, "05.05. | H1 | Weizen | 100 | Zukauf");
    hof.bucht(2025, "");
    Lagerverwaltungsdaten anderes(anschluesse);
    daten.setBetriebsnummer(u"4711"_s);
    daten.setStichdatum(QDate(2024, 1, 1));
    anderes.setStichdatum(QDate(2025, 1, 1));
    daten.Kontrolle_LagerbestandLaden();
    EXPECT_EQ(hof.journal(2025), zeilen(""));
    anderes.setStichdatum(QDate(2024, 6, 1));
    daten.Kontrolle_LagerbestandLaden();
    EXPECT_EQ(hof.journal(2025), zeilen("01.01. | H1 | Weizen | 100 | Anfangsbestand"));
    modulzustand().BildschirmOffen = true;
    daten.Kontrolle_LagerbestandLaden();
    daten.setBetriebsnummer(u"4712"_s); // the open screen would book into this farm
    EXPECT_THROW(daten.Kontrolle_LagerbestandLaden(), jet::Error);
}
