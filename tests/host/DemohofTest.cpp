// The demo farm, as it stands in its files.

#include "host/demo/Demohof.h"
#include "host/Komponente.h"
#include "platform/jet/Engine.h"
#include "platform/system/Files.h"
#include "tests/host/Lauf.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QCoreApplication>
#include <QDir>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Jahre[] = {2023, 2024, 2025, 2026}; // the last one is open

class Demohof : public testing::Test {
protected:
    ~Demohof() override
    {
        jet::engine().release();
        qunsetenv("XDG_CONFIG_HOME");
    }

    static QStringList frage(const QString& datei, const QString& verbindung, const QString& abfrage)
    {
        return gezeigt(*jet::engine().OpenDatabase(datei, verbindung), abfrage);
    }
    QStringList journal(int jahr, const QString& abfrage) const
    {
        return frage(hof.journaldatei(Demobetrieb, jahr), {}, abfrage);
    }
    int anzahl(int jahr, const QString& bedingung) const
    {
        return journal(jahr, u"SELECT Count(*) FROM LAGERJOURNAL WHERE "_s + bedingung).value(0).toInt();
    }
    QStringList grundstamm(const QString& abfrage) const
    {
        return frage(hof.daten() + u"/Grundstamm.mdb"_s, u";pwd=RT-58KX"_s, abfrage);
    }
    QStringList jahresstamm(int jahr, const QString& abfrage) const
    {
        return frage(hof.programm() + u"/ZABStammdaten_"_s + QString::number(jahr) + u".mdb"_s, u";pwd=RT-58KX"_s,
                     abfrage);
    }

    int argc = 1;
    char name[10] = "host_test";
    char* argv[2] = {name, nullptr};
    QCoreApplication programm{argc, argv}; // the library is looked for beside the program
    QTemporaryDir ordner;
    Installation hof{ordner.path() + u"/Höfe"_s};
    const QDate heute{2026, 9, 18};
};

const QStringList Artikelarten = {u"Futtermittel"_s,         u"Gesundheitsmittel"_s,       u"Handelsdünger"_s,
                                  u"Pflanzenschutzmittel"_s, u"Pflanzliche Erzeugnisse"_s, u"Saatgut/Sorten"_s,
                                  u"Sonstige Artikel"_s,     u"Treib- und Brennstoffe"_s,  u"Wirtschaftsdünger"_s,
                                  u"Zwischenfruchtsaatgut"_s};
const QStringList Buchungsarten = {u"Anfangsbestand"_s, u"Eigenverbrauch"_s, u"Entsorgung"_s, u"Ernte"_s,
                                   u"Korrektur"_s,      u"Produktion"_s,     u"Schwund"_s,    u"Umbuchung"_s,
                                   u"Verkauf"_s,        u"Zukauf"_s};

/// What the check against the register says of a product, told in the words of the files.
QString registerfall(const QStringList& produkt, const QStringList& eintrag)
{
    if (produkt.isEmpty()) return u"nicht in der Produktliste"_s;
    if (produkt.first().startsWith(u"Netzmittel"_s)) return u"nicht zu prüfen"_s;
    return eintrag.isEmpty() ? u"nicht im Register"_s : eintrag.first();
}

} // namespace

TEST_F(Demohof, JedesAbgeschlosseneJahrHatJedeArtVonZeilen)
{
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    EXPECT_EQ(sys::Dir(hof.betriebsordner(Demobetrieb) + u"/Lager.????"_s).size(), 4);
    const QString mindestens[] = {
        u"Buchungsart = 'Schwund' AND Menge > 0"_s,
        u"Buchungsart = 'Verkauf' AND Uberstallt_alt <> ''"_s,
        u"Buchungsart = 'Verkauf' AND Uberstallt_alt = ''"_s,
        u"Buchungsart = 'Zukauf' AND Uberstallt_alt <> ''"_s,
        u"Buchungsart = 'Ernte' AND BEErfassungsnummer > 0 AND BuchungsID > 0"_s,
        u"Buchungsart = 'Eigenverbrauch' AND BEErfassungsnummer > 0 AND BuchungsID > 0"_s,
        u"Buchungsart = 'Eigenverbrauch' AND BEErfassungsnummer IS NULL AND BuchungsID = 0"_s,
        u"Verfuttert_an = 'BIOJA'"_s,
        u"Verfuttert_an = 'GEBEIZT'"_s,
        u"Kommentar <> ''"_s,
    };
    for (const int jahr : {2023, 2024, 2025}) {
        SCOPED_TRACE(jahr);
        EXPECT_EQ(journal(jahr, u"SELECT DISTINCT Artikelart FROM LAGERJOURNAL"_s), Artikelarten);
        EXPECT_EQ(journal(jahr, u"SELECT DISTINCT Buchungsart FROM LAGERJOURNAL"_s), Buchungsarten);
        EXPECT_NEAR(anzahl(jahr, u"Buchungsart <> 'Anfangsbestand'"_s), 650, 50);
        for (const QString& bedingung : mindestens)
            EXPECT_GE(anzahl(jahr, bedingung), 1) << bedingung.toStdString();
        EXPECT_FALSE(journal(jahr, u"SELECT Datum, Uberstallt_alt FROM LAGERJOURNAL WHERE Buchungsart = 'Verkauf' "
                                   u"GROUP BY Datum, Uberstallt_alt HAVING Count(*) > 1"_s)
                         .isEmpty());
    }
    EXPECT_EQ(anzahl(2026, u"Datum > #9/18/2026#"_s), 0);
    EXPECT_GE(anzahl(2026, u"Datum > #9/11/2026#"_s), 1); // up to today, not up to some month
}

TEST_F(Demohof, KeinLagerortWirdNegativUndDieJahreHaengenZusammen)
{
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    QMap<QString, double> schluss; // of the year before, by article and place
    for (const int jahr : Jahre) {
        QMap<QString, double> anfang, stand;
        const auto datei = jet::engine().OpenDatabase(hof.journaldatei(Demobetrieb, jahr));
        const auto zeilen = datei->OpenRecordset(u"SELECT * FROM LAGERJOURNAL ORDER BY Datum, ID"_s);
        for (; !zeilen->Eof(); zeilen->MoveNext()) {
            const jet::Recordset& zeile = *zeilen;
            const QString paar = zeile[u"Artikel"].toText() + u" | "_s + zeile[u"LagerortKurzKu"].toText();
            stand[paar] += zeile[u"Menge"].toDouble();
            if (zeile[u"Buchungsart"].toText() == u"Anfangsbestand"_s) anfang[paar] += zeile[u"Menge"].toDouble();
            EXPECT_GE(stand[paar], -1e-9) << paar.toStdString() << ' ' << zeile[u"Datum"].toText().toStdString();
            EXPECT_EQ(zeile[u"Datum"].toDate().year(), jahr);
            EXPECT_NE(zeile[u"Menge"].toDouble(), 0);
        }
        for (const QString& paar : jahr == Jahre[0] ? QStringList() : (schluss.keys() + anfang.keys()))
            EXPECT_NEAR(anfang.value(paar), schluss.value(paar), 5e-5) << jahr << ' ' << paar.toStdString();
        schluss = stand;
    }
}

TEST_F(Demohof, DieZeilenEinerUmbuchungNennenEinander)
{
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    for (const int jahr : Jahre) {
        const QString umbuchungen = u" FROM LAGERJOURNAL WHERE Buchungsart = 'Umbuchung' AND Menge "_s;
        const QStringList abgaenge =
            journal(jahr, u"SELECT ID, Verfuttert_an, Datum, Menge"_s + umbuchungen + u"< 0 ORDER BY ID"_s);
        const QStringList zugaenge =
            journal(jahr, u"SELECT Verfuttert_an, ID, Datum, -Menge"_s + umbuchungen + u"> 0 ORDER BY ID"_s);
        EXPECT_GE(abgaenge.size(), 5);
        EXPECT_EQ(abgaenge, zugaenge) << jahr;
        EXPECT_GE(anzahl(jahr, u"Buchungsart = 'Umbuchung' AND Artikel = 'Weichweizen'"_s), 1); // of another article
    }
}

TEST_F(Demohof, DieStammdatenKennenWasGebuchtIst)
{
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    QStringList artikel, gesperrt;
    for (const QString& tabelle :
         {u"Dungermittel"_s, u"Pflanzenschutzmittel"_s, u"Saatgut"_s, u"WIRTDUNG"_s, u"Zwischenfruechte"_s,
          u"Kulturen"_s, u"Futtermittel"_s, u"Treibstoffe"_s, u"SonstigeArtikel"_s, u"Arzneimittel"_s}) {
        const QString auswahl = u"SELECT NAME, Einheit, Untergruppe FROM "_s + tabelle +
                                u" WHERE Preis > 0 AND Preisfaktor IN ('1','100') AND Sperre = "_s;
        const QStringList angeboten = grundstamm(auswahl + u"False"_s);
        EXPECT_GE(angeboten.size(), 3) << tabelle.toStdString();
        artikel += angeboten;
        gesperrt += grundstamm(auswahl + u"True"_s);
    }
    const QStringList partner = grundstamm(u"SELECT KurzKu FROM HANDLER WHERE SPERRE = False AND Strasse <> ''"_s);
    EXPECT_GE(gesperrt.size(), 2);
    EXPECT_EQ(partner.size(), 12);
    EXPECT_EQ(grundstamm(u"SELECT KurzKu FROM HANDLER WHERE SPERRE = True"_s).size(), 1);
    const QStringList orte = frage(hof.anlagen() + u"/Anlagen.mdb"_s, u";pwd=volmira"_s,
                                   u"SELECT KurzKu FROM Objekte WHERE (Objektart = 'Lager' OR Objektart = "
                                   u"'Düngersammelstelle') AND Anzeigen=True ORDER BY KurzKu"_s);
    EXPECT_EQ(orte.size(), 4);
    for (const int jahr : Jahre) {
        EXPECT_EQ(journal(jahr, u"SELECT DISTINCT LagerortKurzKu FROM LAGERJOURNAL"_s), orte);
        for (const QString& zeile : journal(jahr, u"SELECT DISTINCT Artikel, Einheit, Untergruppe FROM LAGERJOURNAL"_s))
            EXPECT_TRUE(artikel.contains(zeile)) << jahr << ' ' << zeile.toStdString();
        for (const QString& kurzKu : journal(jahr, u"SELECT DISTINCT Uberstallt_alt FROM LAGERJOURNAL WHERE "
                                                   u"Uberstallt_alt <> ''"_s))
            EXPECT_TRUE(partner.contains(kurzKu)) << jahr << ' ' << kurzKu.toStdString();
    }
}

TEST_F(Demohof, JederFallDesRegistersKommtInJedemJahrVor)
{
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    for (const int jahr : Jahre) {
        QStringList faelle;
        for (const QString& artikel : journal(jahr, u"SELECT DISTINCT Artikel FROM LAGERJOURNAL WHERE Artikelart = "
                                                    u"'Pflanzenschutzmittel'"_s)) {
            const QStringList produkt = jahresstamm(
                jahr, u"SELECT Gruppe, Regnr FROM PFLANZENSCHUTZMITTEL WHERE NAME = '"_s + artikel + u"'"_s);
            const QString nummer = produkt.value(0).section(u" | "_s, -1);
            const QStringList eintrag =
                jahresstamm(jahr, u"SELECT IIF(Regnr = '"_s + nummer +
                                      u"', '', 'früher '), Aufbrauchsfrist FROM REGISTER WHERE "_s + u"(Regnr = '"_s +
                                      nummer + u"' OR RegNrAlt = '"_s + nummer + u"') AND BEZEICHNUNG = '"_s +
                                      artikel.section(u"     ("_s, 0, 0) + u"'"_s);
            faelle.append(artikel + u": "_s + registerfall(produkt, eintrag));
        }
        const QStringList erwartet = {
            u"Arvendol 80:  | 30.06."_s + QString::number(jahr + 1),
            u"Beizurin Korn: früher  | NULL"_s,
            u"Gruvesan Plus: nicht in der Produktliste"_s,
            u"Halmadur:  | NULL"_s,
            u"Limaxil Streu: nicht im Register"_s,
            u"Quendolar 360:  | NULL"_s,
            u"Sorvenal 500     (D-2871):  | NULL"_s,
            u"Trespanol Netz: nicht zu prüfen"_s,
            u"Veltranor Forte:  | 31.07."_s + QString::number(jahr),
        };
        EXPECT_EQ(faelle, erwartet);
    }
}

TEST_F(Demohof, EinAbgeschlossenesJahrHaengtNichtAmHeutigenTag)
{
    const Installation anderer(ordner.path() + u"/anderer"_s);
    const Installation januar(ordner.path() + u"/januar"_s);
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    ASSERT_TRUE(legeDemohofAn(anderer, heute));
    ASSERT_TRUE(legeDemohofAn(januar, QDate(2026, 1, 1)));
    const auto zeilen = [](const Installation& ort, int jahr) {
        return frage(ort.journaldatei(Demobetrieb, jahr), {}, u"SELECT * FROM LAGERJOURNAL ORDER BY ID"_s);
    };
    for (const int jahr : Jahre) {
        EXPECT_EQ(zeilen(hof, jahr), zeilen(anderer, jahr)) << jahr;
        EXPECT_EQ(zeilen(hof, jahr) == zeilen(januar, jahr), jahr != 2026) << jahr;
    }
    const QString offen = u"SELECT DISTINCT Buchungsart FROM LAGERJOURNAL"_s;
    EXPECT_EQ(frage(januar.journaldatei(Demobetrieb, 2026), {}, offen), QStringList(u"Anfangsbestand"_s));
}

TEST_F(Demohof, DerHostKenntNameUndAdresseAusDenEinstellungen)
{
    ASSERT_TRUE(legeDemohofAn(hof, heute));
    const auto lager = lagerverwaltungsdaten(hof, Demobetrieb, heute);
    EXPECT_EQ(lager->Betriebsname(), u"Demohof Oberau"_s);
    EXPECT_EQ(lager->Betriebsadresse(), u"Oberau 5, 4799 Beispielau"_s);
    EXPECT_EQ(lager->Währung(), u"EUR"_s);
    EXPECT_EQ(lagerverwaltungsdaten(hof, u"4712"_s, heute)->Betriebsname(), QString());
}
