// The check of plant-protection products against a national register: all of its products lie in store, and each sentence
// must come as often as another program counted in the register's own tables.
//
// The tables are those of the Swiss Federal Food Safety and Veterinary Office (BLV), Pflanzenschutzmittelverzeichnis, in
// two states; only the official register (psm.admin.ch) counts. They may not be handed on and lie beside the project.

#include "tests/overview/Hauptbildschirm.h"
#include "tests/support/CsvTabelle.h"

#include "core/Modulzustand.h"
#include "platform/jet/Engine.h"

#include <QAction>
#include <QFile>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Produkt {
    QString name, nummer, gruppen;
    QDate frist; ///< Last day of use; null while the product is approved.
    QString fruehereNummer{};
};
using Produkte = std::vector<Produkt>;

const QString Saetze[] = {u" ist zugelassen."_s, u" ausgelaufen!"_s, u" verbraucht werden."_s,
                          u"Registerdatenbank nicht gefunden."_s, u"Pflanzenschutzmitteldatenbank nicht gefunden."_s};
const QString Ordner = QStringLiteral(ZABLAGER_SHARED_DATA) + u"/register/"_s;

Produkte lies(const QString& stand)
{
    Produkte alle;
    for (CsvTabelle tabelle(dateiinhalt(Ordner + u"register_ch_"_s + stand + u".csv.xz"_s)); tabelle.naechste();)
        alle.push_back({QString::fromUtf8(tabelle.feld("name")), QString::fromUtf8(tabelle.feld("registration")),
                        QString::fromUtf8(tabelle.feld("category_de")),
                        QDate::fromString(QString::fromLatin1(tabelle.feld("use_up_deadline")), Qt::ISODate)});
    return alle;
}

QSet<QString> nummern(const Produkte& produkte)
{
    QSet<QString> alle;
    for (const Produkt& produkt : produkte)
        alle.insert(produkt.nummer);
    return alle;
}

QHash<QString, int> haeufigkeiten(const Produkte& produkte)
{
    QHash<QString, int> namen;
    for (const Produkt& produkt : produkte)
        ++namen[produkt.name.toLower()];
    return namen;
}

/// The register states no former numbers. Where a number is gone, and its name goes on under one number only, it is taken
/// for the former one of that.
void setzeFruehereNummern(Produkte& neu, const Produkte& alt)
{
    const QSet<QString> bekannte = nummern(neu);
    QHash<QString, QString> verschwunden;
    for (const Produkt& produkt : alt)
        if (!bekannte.contains(produkt.nummer)) verschwunden[produkt.name.toLower()] = produkt.nummer;
    const auto haeufigkeit = haeufigkeiten(neu);
    for (Produkt& produkt : neu)
        if (const QString name = produkt.name.toLower(); haeufigkeit[name] == 1)
            produkt.fruehereNummer = verschwunden.value(name);
}

/// What a farm calls its articles: a name that several products have carries the number, and nothing is longer than the
/// column, so that a long name is cut.
Produkte alsArtikel(Produkte produkte)
{
    const auto haeufigkeit = haeufigkeiten(produkte);
    for (Produkt& produkt : produkte) {
        if (haeufigkeit[produkt.name.toLower()] > 1) produkt.name += u"     ("_s + produkt.nummer + u')';
        produkt.name.truncate(50);
    }
    return produkte;
}

class EchtesRegister : public Hauptbildschirm {
protected:
    void fuelleStammdaten(int jahr, const Produkte& liste, const Produkte& register_) const
    {
        hof.richteEin(jahr);
        const QString datei = hof.ort().programm() + u"/ZABStammdaten_"_s + QString::number(jahr) + u".mdb"_s;
        const auto stamm = jet::engine().OpenDatabase(datei, u";pwd=RT-58KX"_s);
        stamm->BeginTrans();
        const auto mittel = stamm->OpenRecordset(u"PFLANZENSCHUTZMITTEL"_s, jet::Kind::Table);
        for (const Produkt& produkt : liste) {
            mittel->AddNew();
            mittel->Set(u"NAME", produkt.name);
            mittel->Set(u"Gruppe", produkt.gruppen);
            mittel->Set(u"Regnr", produkt.nummer);
            mittel->Update();
        }
        const auto eintraege = stamm->OpenRecordset(u"REGISTER"_s, jet::Kind::Table);
        for (const Produkt& produkt : register_) {
            eintraege->AddNew();
            eintraege->Set(u"Regnr", produkt.nummer);
            eintraege->Set(u"RegNrAlt", produkt.fruehereNummer);
            eintraege->Set(u"BEZEICHNUNG", produkt.name);
            if (produkt.frist.isValid()) eintraege->Set(u"Aufbrauchsfrist", produkt.frist);
            eintraege->Update();
        }
        stamm->Close();
    }

    /// All over the year; every third product lies at two places.
    void buche(int jahr, const Produkte& produkte) const
    {
        const auto datei = hof.oeffne(jahr);
        datei->BeginTrans();
        const auto journal = datei->OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
        for (int i = 0; i < int(produkte.size()); ++i)
            for (const QString& ort : i % 3 == 0 ? QStringList{u"H1"_s, u"PSM"_s} : QStringList{u"PSM"_s}) {
                journal->AddNew();
                journal->Set(u"Datum", QDate(jahr, 1, 1).addDays(i % 365));
                journal->Set(u"Artikel", produkte[std::size_t(i)].name);
                journal->Set(u"Artikelart", u"Pflanzenschutzmittel"_s);
                journal->Set(u"LagerortKurzKu", ort);
                journal->Set(u"Menge", 2.5);
                journal->Set(u"Einheit", u"l"_s);
                journal->Update();
            }
        datei->Close();
    }
};

} // namespace

TEST_F(EchtesRegister, SagtVonJedemMittelWasDarinSteht)
{
    if (!QFile::exists(Ordner)) GTEST_SKIP() << "no register in " << Ordner.toStdString();
    constexpr int Jahr = 2026;
    const Produkte alt = lies(u"2024-12-16"_s);
    Produkte neu = lies(u"2026-02-03"_s);
    setzeFruehereNummern(neu, alt);
    const Produkte liste = alsArtikel(alt);
    Produkte gebucht = liste;
    const QSet<QString> bekannte = nummern(alt);
    for (const Produkt& produkt : alsArtikel(neu)) // which the product list does not have, as it is not kept up
        if (!bekannte.contains(produkt.nummer)) gebucht.push_back(produkt);
    fuelleStammdaten(Jahr, liste, neu);
    buche(Jahr, gebucht);
    modulzustand().Stichdatum = QDate(Jahr, 6, 1);
    oeffne();
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    feld<QAction>("M_PflanzschPrufen").trigger();
    const QStringList meldungen = hof.meldungen().abgeholt();
    ASSERT_EQ(meldungen.size(), 2); // the engine's, for the one name with an apostrophe, and the text
    EXPECT_TRUE(meldungen[0].startsWith(bericht(3077))) << meldungen[0].toStdString();
    const QStringList text = meldungen[1].split(u"\r\n"_s);
    constexpr std::array<qsizetype, 5> Anzahlen = {2341, 249, 92, 122, 143}; // counted by another program
    for (std::size_t i = 0; i < Anzahlen.size(); ++i)
        EXPECT_EQ(text.filter(Saetze[i]).size(), Anzahlen[i]) << Saetze[i].toStdString();
}
