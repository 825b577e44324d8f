// The check of plant-protection products against a national register: all of its products lie in store, and the text must
// be the one that this test reckons from the register's own tables.
//
// The tables are those of the Swiss Federal Food Safety and Veterinary Office (BLV), Pflanzenschutzmittelverzeichnis, in
// two states; only the official register (psm.admin.ch) counts. They may not be handed on and lie beside the project.

#include "tests/overview/Hauptbildschirm.h"
#include "tests/support/CsvTabelle.h"

#include "core/Modulzustand.h"
#include "platform/controls/DataControl.h"
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

/// By the register's categories that are not checked. "Saatbeizmittel" is one of them, since words count with their case.
bool wirdGeprueft(const QString& gruppen)
{
    static const QStringList ungeprueft =
        u"Andere|Bakterizid|Desinfektionsmittel|Mittel zum Schutz von Erntegütern|Netz- und Haftmittel|Pheromon|"
        u"Phytoregulator|Saatbeizmittel|Stimulator der natürlichen Abwehrkräfte|Virizid|Vorratsschutzmittel|"
        u"Wildabhaltemittel|Wundverschlussmittel|Zusatzstoffe"_s.split(u'|');
    const QStringList einzelne = gruppen.split(u'|');
    return std::ranges::any_of(einzelne, [](const QString& gruppe) {
        return !ungeprueft.contains(gruppe) && !gruppe.startsWith(u"Lebende Organismen");
    });
}

/// The sentences, from plain tables of names and numbers.
class Rechnung {
public:
    Rechnung(const Produkte& liste, const Produkte& register_, int jahr) : m_jahresende(jahr, 12, 31)
    {
        for (const Produkt& produkt : liste) // of products with the same name the first one is found
            if (!m_liste.contains(produkt.name.toLower())) m_liste.insert(produkt.name.toLower(), produkt);
        for (const Produkt& produkt : register_) {
            m_fristen.insert(produkt.nummer + u'/' + produkt.name.toLower(), produkt.frist);
            if (!produkt.fruehereNummer.isEmpty())
                m_fristen.insert(produkt.fruehereNummer + u'/' + produkt.name.toLower(), produkt.frist);
        }
    }

    QStringList zeilen(const QString& artikel) const
    {
        const QString das = u"Das Pflanzenschutzmittel "_s + artikel + u" wurde in der "_s;
        const auto produkt = m_liste.constFind(artikel.toLower());
        if (produkt == m_liste.constEnd())
            return {das + u"Pflanzenschutzmitteldatenbank nicht gefunden. Es kann nicht überprüft werden und ist"
                          u" wahrscheinlich nicht mehr zugelassen."_s};
        if (!wirdGeprueft(produkt->gruppen)) return {};
        const auto frist =
            m_fristen.constFind(produkt->nummer + u'/' + artikel.toLower().section(u"     ("_s, 0, 0).trimmed());
        if (frist != m_fristen.constEnd() && frist->isNull())
            return {das + u"Registerdatenbank gefunden und ist zugelassen."_s};
        const QString linie(158, u'=');
        const QString vorsicht = u"VORSICHT: "_s + das + u"Registerdatenbank "_s;
        if (frist == m_fristen.constEnd())
            return {linie, vorsicht + u"nicht gefunden. Es ist wahrscheinlich nicht mehr zugelassen."_s, linie};
        const QString tag = frist->toString(u"dd.MM.yyyy"_s);
        if (*frist < m_jahresende)
            return {linie, vorsicht + u"gefunden. Es ist am "_s + tag + u" ausgelaufen!"_s, linie};
        return {linie, vorsicht + u"gefunden. Es muss bis "_s + tag + u" verbraucht werden."_s, linie};
    }

private:
    QHash<QString, Produkt> m_liste;
    QHash<QString, QDate> m_fristen;
    QDate m_jahresende;
};

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

    QStringList gezeigteArtikel() const
    {
        const jet::Recordset& liste = feld<DataControl>("Bestanddaten").Recordset();
        QStringList namen;
        for (qsizetype zeile = 0; zeile < liste.RecordCount(); ++zeile)
            namen.append(liste.RowAt(zeile).value()[3].toText()); // after the three sums
        return namen;
    }
};

} // namespace

TEST_F(EchtesRegister, SagtVonJedemMittelWasDarinSteht)
{
    if (!QFile::exists(Ordner)) GTEST_SKIP() << "no register in " << Ordner.toStdString();
    const Produkte alt = lies(u"2024-12-16"_s);
    Produkte neu = lies(u"2026-02-03"_s);
    setzeFruehereNummern(neu, alt);
    const Produkte liste = alsArtikel(alt);
    Produkte auchNeue = liste; // which the product list does not have, as it is not kept up
    const QSet<QString> bekannte = nummern(alt);
    for (const Produkt& produkt : alsArtikel(neu))
        if (!bekannte.contains(produkt.nummer)) auchNeue.push_back(produkt);
    const struct {
        int jahr;
        const Produkte &gebucht, &register_;
        std::array<qsizetype, 5> anzahlen; // of the sentences, in the order of Saetze; counted by another program
    } faelle[] = {
        {2025, liste, alt, {2509, 101, 185, 9, 0}},
        {2026, auchNeue, neu, {2341, 249, 92, 122, 143}},
    };
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.jahr);
        fuelleStammdaten(fall.jahr, liste, fall.register_);
        buche(fall.jahr, fall.gebucht);
        modulzustand().Stichdatum = QDate(fall.jahr, 6, 1);
        oeffne();
        tippe("drpLagerOrte", u"H1"_s);
        tippe("VonDatum", u"1.7."_s);
        tippe("Buchdatum", u"30.9."_s);
        hof.meldungen().beantworteAlle(sys::Answer::Ignore);
        feld<QAction>("M_PflanzschPrufen").trigger();
        QStringList meldungen = hof.meldungen().abgeholt();
        ASSERT_FALSE(meldungen.isEmpty());
        const QStringList text = meldungen.takeLast().split(u"\r\n"_s);

        const Rechnung rechnung(liste, fall.register_, fall.jahr);
        QStringList soll{QString()}; // each line is preceded by its break
        for (const QString& artikel : gezeigteArtikel())
            soll += artikel.contains(u'\'')
                        ? QStringList(u"Das Pflanzenschutzmittel "_s + artikel + u" konnte nicht überprüft werden."_s)
                        : rechnung.zeilen(artikel);
        schliesse();
        for (qsizetype i = 0; i < std::min(text.size(), soll.size()); ++i)
            ASSERT_EQ(text[i], soll[i]) << "line " << i;
        EXPECT_EQ(text.size(), soll.size());
        ASSERT_EQ(meldungen.size(), 1); // the engine's, for the one name with an apostrophe
        EXPECT_TRUE(meldungen[0].startsWith(bericht(3077))) << meldungen[0].toStdString();
        for (std::size_t i = 0; i < fall.anzahlen.size(); ++i)
            EXPECT_EQ(text.filter(Saetze[i]).size(), fall.anzahlen[i]) << Saetze[i].toStdString();
    }
}
