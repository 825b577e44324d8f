#include "core/Journaldatei.h"
#include "core/Lagerverwaltungsdaten.h"
#include "tests/core/CsvTabelle.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QFile>

#include <algorithm>
#include <iterator>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// "2011 84029g / France closes with 10": spellings of articles that differ in case are one; a place's short
/// code has at most 15 characters.
QString satz(const QString& jahr, const QString& artikel, const QString& ort, const QString& was)
{
    return jahr + u' ' + artikel.trimmed().toLower() + u" / "_s + ort.left(15) + u' ' + was;
}

QString anfang(double menge, double preis)
{
    constexpr double Rundung = 1e-6; // of the table: what ends with a 5 must not fall either way
    return u"opens with %1 at %2"_s.arg(menge).arg(preis + Rundung, 0, 'f', 4);
}

/// What the table says that another program computed: columns article, place, year, opening, closing and
/// mean_unit_price_gbp, the latter of the year's movements. The years of a pair stand one after the other.
std::set<QString> sollBestaende(const QString& datei)
{
    std::set<QString> saetze;
    double preis = 0; // of the year before
    for (CsvTabelle tabelle(datei); tabelle.naechste();) {
        const auto satzMit = [&](const QString& was) {
            saetze.insert(
                satz(tabelle.feld(u"year"_s), tabelle.feld(u"article"_s), tabelle.feld(u"place"_s), was));
        };
        satzMit(u"closes with "_s + QString::number(tabelle.zahl(u"closing"_s)));
        if (tabelle.zahl(u"opening"_s) != 0) satzMit(anfang(tabelle.zahl(u"opening"_s), preis));
        preis = tabelle.feld(u"mean_unit_price_gbp"_s).toDouble();
    }
    return saetze;
}

/// Books movements in the order of time: columns timestamp, article, place, quantity, unit_price_gbp. The
/// time of day is left out, since journals know days.
void buche(const Testbetrieb& hof, const QString& datei)
{
    int jahr = 0;
    std::unique_ptr<jet::Database> jahresdatei;
    std::unique_ptr<jet::Recordset> journal;
    for (CsvTabelle tabelle(datei); tabelle.naechste();) {
        const QDate tag = QDate::fromString(tabelle.feld(u"timestamp"_s).left(10), Qt::ISODate);
        if (tag.year() != std::exchange(jahr, tag.year())) {
            hof.bucht(jahr, "");
            jahresdatei = hof.oeffne(jahr); // the year before is kept
            jahresdatei->BeginTrans();
            journal = jahresdatei->OpenRecordset(u"LAGERJOURNAL"_s);
        }
        journal->AddNew();
        journal->Set(u"Datum", tag);
        journal->Set(u"Artikel", tabelle.feld(u"article"_s));
        journal->Set(u"LagerortKurzKu", tabelle.feld(u"place"_s).left(15));
        journal->Set(u"Menge", tabelle.zahl(u"quantity"_s));
        journal->Set(u"Preis", tabelle.zahl(u"unit_price_gbp"_s));
        journal->Set(u"Buchungsart", tabelle.zahl(u"quantity"_s) < 0 ? u"Schwund"_s : u"Zukauf"_s);
        journal->Update();
    }
    jahresdatei->Close();
}

std::set<QString> istBestaende(Lagerverwaltungsdaten& lager, int jahr)
{
    std::set<QString> saetze;
    const auto journal = oeffneJournal(jahr);
    const auto paare = journal->OpenRecordset(u"SELECT DISTINCT Artikel, LagerortKurzKu FROM LAGERJOURNAL"_s);
    const auto satzMit = [&](const jet::Recordset& zeile, const QString& was) {
        saetze.insert(
            satz(QString::number(jahr), zeile[u"Artikel"].toText(), zeile[u"LagerortKurzKu"].toText(), was));
    };
    for (; !paare->Eof(); paare->MoveNext()) {
        const double bestand = lager.Get_Bestand((*paare)[u"Artikel"].toText(),
                                                 (*paare)[u"LagerortKurzKu"].toText(), QDate(jahr, 12, 31));
        satzMit(*paare, u"closes with "_s + QString::number(bestand));
    }
    const auto zeilen =
        journal->OpenRecordset(u"SELECT * FROM LAGERJOURNAL WHERE Buchungsart = 'Anfangsbestand'"_s);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const jet::Recordset& zeile = *zeilen;
        EXPECT_EQ(zeile[u"Datum"].toDate(), QDate(jahr, 1, 1));
        satzMit(zeile, anfang(zeile[u"Menge"].toDouble(), zeile[u"Preis"].toDouble()));
    }
    return saetze;
}

} // namespace

// Half a million of them, or 20 000 where only those are at hand.
TEST(Handel, EchteBewegungenErgebenDieBestaendeEinesAnderenProgramms)
{
    const QString alle = QStringLiteral(ZABLAGER_SHARED_DATA "/retail/"),
                  wenige = QStringLiteral(TEST_DATA "/handel/");
    const bool gross = QFile::exists(alle);
    const Testbetrieb hof(QDate(2010, 12, 1));
    buche(hof, gross ? alle + u"transactions.csv.xz"_s : wenige + u"bewegungen.csv"_s);
    const auto soll =
        sollBestaende(gross ? alle + u"reference_closing_nocase.csv.xz"_s : wenige + u"schlussbestand.csv"_s);
    EXPECT_EQ(soll.size(), gross ? 28720u : 1013u);
    Lagerverwaltungsdaten lager({[] { return nullptr; }, {}});
    for (const int lauf : {1, 2}) { // the second must change nothing
        lager.setBetriebsnummer(u"4711"_s);
        lager.setStichdatum(QDate(2010, 1, 1));
        lager.Kontrolle_LagerbestandLaden();
        std::set<QString> ist;
        for (const int jahr : {2010, 2011})
            ist.merge(istBestaende(lager, jahr));
        QStringList anders;
        std::set_symmetric_difference(soll.begin(), soll.end(), ist.begin(), ist.end(),
                                      std::back_inserter(anders));
        EXPECT_EQ(anders, QStringList()) << lauf;
    }
}
