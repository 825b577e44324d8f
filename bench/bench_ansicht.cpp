// The main screen's filtering, both views: the repair of units, the keys of the journal, the stock list.

#include "bench/BareAnsichten.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr char ErsterTag[] = "2020-01-01";
constexpr char LetzterTag[] = "2020-12-31";
constexpr int Spaltenbreit = 1; // "Artikel" in the journal, "Artikelgruppe" in the stock list

void pruefeJournal(const jet::Recordset& journal, const std::vector<qint64>& schluessel, const Umfang& umfang)
{
    fordere(journal.RecordCount() == umfang.zeilen && std::ssize(schluessel) == umfang.zeilen,
            u"rows are missing in the journal"_s);
    for (const qsizetype zeile : {qsizetype{0}, journal.RecordCount() / 2, journal.RecordCount() - 1})
        fordere((*journal.RowAt(zeile))[2].toLong() == schluessel[static_cast<std::size_t>(zeile)],
                u"the journal is in another order"_s);
}

void pruefeBestandsliste(const jet::Recordset& liste, const std::vector<Bestandszeile>& bar,
                         const Umfang& umfang)
{
    fordere(liste.RecordCount() == umfang.paare && std::ssize(bar) == umfang.paare,
            u"rows are missing in the stock list"_s);
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

void messeAnsicht(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    BareAnsichten bar(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    Messbildschirm bildschirm;
    pruefeSummen(bar.bestandsliste(ErsterTag, LetzterTag), umfang);
    pruefeJournal(bildschirm.journal(), bar.schluessel(ErsterTag, LetzterTag), umfang);
    pruefeBestandsliste(bildschirm.bestandsliste(), bar.bestandsliste(ErsterTag, LetzterTag), umfang);

    const auto filtereBar = [&] {
        bar.repariere();
        bar.schluessel(ErsterTag, LetzterTag);
        bar.bestandsliste(ErsterTag, LetzterTag);
    };
    const auto miss = [&](const QString& titel, double ziel) {
        Messung messung(u"Filtering, "_s + titel + u", "_s + QString::number(umfang.zeilen) + u" rows, "_s +
                            QString::number(umfang.paare) + u" pairs"_s,
                        1);
        messung.nimm(u"limit: its statements bare"_s, 0, filtereBar);
        messung.nimm(u"FilterEinstellen"_s, ziel, [&] { bildschirm.filtere(); });
        messung.miss(umfang.runden);
    };
    miss(u"sorted by day, places separate"_s, 1.3);
    bildschirm.inSumme(true);
    miss(u"places in sum (limit: separate)"_s, 0);
    bildschirm.inSumme(false);
    bildschirm.klickeKopf("Journalliste", Spaltenbreit);
    bildschirm.klickeKopf("BestandListe", Spaltenbreit);
    miss(u"other sorting (limit: by day)"_s, 0);
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 20}, {1'000'000, 5'000, 5}, messeAnsicht);
}
