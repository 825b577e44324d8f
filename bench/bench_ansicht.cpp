// The main screen's filtering, both views: the repair of units, the keys of the journal, the stock list;
// narrowed, in sum, and sorted by each column.

#include "bench/BareAnsichten.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const Ausschnitt Jahr{QDate(2020, 1, 1), QDate(2020, 12, 31), {}, {}};

/// What a click on a column's head sorts by.
struct Spalte {
    const char* name;
    const char* journal;       ///< The column of the table; "" for the day.
    const char* bestandsliste; ///< The column beside it in the other view, up to the end.
    bool istBeispiel;          ///< Its kind stands for others: it is measured in all rounds.
};
constexpr Spalte Spalten[] = {
    {"Artikel", "Artikel", "Artikelart %C", true},
    {"Artikelgruppe", "Artikelart", "LagerortKurzKu %C", false},
    {"Buchungsart", "Buchungsart", "sum(CASE WHEN Menge>0 THEN Menge ELSE 0 END)", false},
    {"Lagerort", "LagerortKurzKu", "sum(CASE WHEN Menge<0 THEN Menge ELSE 0 END)", false},
    {"Zugang", "Menge", "sum(Menge)", false},
    {"Abgang", "Menge", "Einheit %C", false},
    {"Einheit", "Einheit", "Artikelart %C", false},
    {"Preis", "Preis", "LagerortKurzKu %C", true},
    {"Geschäftspartner", "Uberstallt_alt", "sum(CASE WHEN Menge>0 THEN Menge ELSE 0 END)", true},
    {"Kommentar", "Kommentar", "sum(CASE WHEN Menge<0 THEN Menge ELSE 0 END)", false},
};
constexpr int Bestandsspalten = 6; // behind the first one

/// All keys of a group behind what the list is sorted by, so that no order is left open.
QByteArray ordnung(const Spalte& spalte, bool absteigend)
{
    QByteArrayList schluessel = {spalte.bestandsliste};
    for (const char* gruppe : {"Artikel %C", "LagerortKurzKu %C", "Artikelart %C", "Einheit %C"})
        if (!schluessel.contains(gruppe)) schluessel.append(gruppe);
    const QByteArray richtung = absteigend ? " DESC" : "";
    return schluessel.join(richtung + ',') + richtung;
}

void pruefeJournal(const jet::Recordset& journal, const std::vector<qint64>& schluessel)
{
    constexpr std::size_t Schritt = 997; // rows are read one by one
    fordere(journal.RecordCount() == std::ssize(schluessel), u"rows are missing in the journal"_s);
    for (std::size_t zeile = 0; zeile < schluessel.size(); zeile += Schritt)
        fordere((*journal.RowAt(static_cast<qsizetype>(zeile)))[2].toLong() == schluessel[zeile],
                u"the journal is in another order"_s);
}

void pruefeBestandsliste(const jet::Recordset& liste, const std::vector<Bestandszeile>& bar)
{
    fordere(liste.RecordCount() == std::ssize(bar), u"rows are missing in the stock list"_s);
    for (qsizetype i = 0; i < liste.RecordCount(); ++i) {
        const auto zeile = *liste.RowAt(i);
        const Bestandszeile& soll = bar[static_cast<std::size_t>(i)];
        const bool gleich = zeile[0].toDouble() == soll.abgang && zeile[1].toDouble() == soll.zugang &&
                            zeile[2].toDouble() == soll.bestand &&
                            zeile[3].toText().toUtf8() == soll.artikel &&
                            zeile[4].toText().toUtf8() == soll.lagerort;
        fordere(gleich, u"the stock lists differ at "_s + zeile[3].toText());
    }
}

/// The bare list against the made-up rows, in whatever order.
void pruefeSummen(const std::vector<Bestandszeile>& bar, const Umfang& umfang)
{
    double summe = 0;
    for (const Bestandszeile& zeile : bar)
        summe += zeile.bestand;
    double soll = 0;
    for (const double bestand : Musterjournal(Messbetrieb::ErstesJahr, umfang.zeilen, umfang.paare).summen())
        soll += bestand;
    fordere(std::abs(summe - soll) < 1e-3, u"the stocks do not add up"_s);
}

/// How the views show their rows.
struct Art {
    bool inSumme = false;
    QByteArray journalspalte = {};
    QByteArray ordnung = "Artikel %C";
    bool absteigend = false;
    int runden = 0; ///< 0: as many as were asked for.
};

class Ansichtsmessung {
public:
    explicit Ansichtsmessung(const Umfang& umfang)
        : m_umfang(umfang), m_betrieb(umfang.zeilen, umfang.paare),
          m_bar(m_betrieb.journaldatei(Messbetrieb::ErstesJahr)),
          m_anderer(m_betrieb.journaldatei(Messbetrieb::ErstesJahr))
    {
        pruefeSummen(m_bar.bestandsliste(Jahr), umfang);
    }

    void miss()
    {
        vergleiche(u"sorted by day, places separate"_s, 1.15, Jahr);
        m_bildschirm.inSumme(true);
        vergleiche(u"places in sum"_s, 1.25, Jahr, {.inSumme = true});
        m_bildschirm.inSumme(false);
        missAusschnitte();
        const bool alleSpalten = m_umfang.zeilen <= 1'000'000; // else it takes an hour
        for (int i = 0; i < (alleSpalten ? static_cast<int>(std::size(Spalten)) : 1); ++i)
            missSpalte(i);
    }

private:
    void missAusschnitte()
    {
        constexpr int Paar = 17;
        const QString artikel = Musterjournal::artikel(Paar);
        const QString lagerort = Musterjournal::lagerort(Paar);
        m_bildschirm.waehle("drpArtikel", artikel);
        vergleiche(u"one article"_s, 1.25, {Jahr.von, Jahr.bis, artikel.toUtf8(), {}});
        m_bildschirm.waehle("drpArtikel", u"Alle Artikel"_s);
        m_bildschirm.waehle("drpLagerOrte", lagerort);
        vergleiche(u"one place"_s, 1.25, {Jahr.von, Jahr.bis, {}, lagerort.toUtf8()});
        m_bildschirm.waehle("drpLagerOrte", u"Alle Lagerorte"_s);
        const Ausschnitt monat{QDate(2020, 6, 1), QDate(2020, 6, 30), {}, {}};
        m_bildschirm.waehleTage(monat.von, monat.bis);
        vergleiche(u"one month"_s, 1.25, monat);
        m_bildschirm.waehleTage(Jahr.von, Jahr.bis);
    }

    void missSpalte(int i)
    {
        const Spalte& spalte = Spalten[i];
        for (const bool absteigend : {false, true}) {
            m_bildschirm.klickeKopf("Journalliste", i + 1);
            m_bildschirm.klickeKopf("BestandListe", i % Bestandsspalten + 1);
            vergleiche(u"sorted by "_s + QString::fromUtf8(spalte.name) +
                           (absteigend ? u", descending"_s : QString()),
                       1.25, Jahr,
                       {.journalspalte = spalte.journal,
                        .ordnung = ordnung(spalte, absteigend),
                        .absteigend = absteigend,
                        .runden = spalte.istBeispiel ? 0 : 1});
        }
    }

    void vergleiche(const QString& titel, double ziel, const Ausschnitt& aus, const Art& art = {})
    {
        const auto schluessel = [&] { return m_bar.schluessel(aus, art.journalspalte, art.absteigend); };
        const auto liste = [&] { return m_bar.bestandsliste(aus, art.inSumme, art.ordnung); };
        pruefeJournal(m_bildschirm.journal(), schluessel());
        pruefeBestandsliste(m_bildschirm.bestandsliste(), liste());
        Messung messung(u"Filtering, "_s + titel + u", "_s + QString::number(m_umfang.zeilen) + u" rows, "_s +
                            QString::number(m_umfang.paare) + u" pairs"_s,
                        1);
        // Rows that nobody has changed would stay as they are shown.
        const auto aendere = [&] {
            m_anderer.execute("UPDATE LAGERJOURNAL SET BEErfassungsnummer=random() WHERE ID=1");
        };
        const auto filtereBar = [&] {
            m_bar.repariere();
            schluessel();
            liste();
        };
        messung.nimm(u"limit: bare"_s, 0, filtereBar, aendere);
        messung.nimm(
            u"FilterEinstellen"_s, ziel, [&] { m_bildschirm.filtere(); }, aendere);
        messung.miss(art.runden > 0 ? art.runden : m_umfang.runden);
    }

    Umfang m_umfang;
    Messbetrieb m_betrieb;
    BareAnsichten m_bar;
    BareFile m_anderer; // another program
    Messbildschirm m_bildschirm;
};

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 10}, {1'000'000, 5'000, 5},
                           [](const Umfang& umfang) { Ansichtsmessung(umfang).miss(); });
}
