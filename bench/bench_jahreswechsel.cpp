// A change of year on the main screen, with five year files that are all carried forward.

#include "bench/BareAnsichten.h"
#include "bench/BarerUebertrag.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include "core/JahresUbertrag.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Jahre = 5;
// A change carries forward from the year before the chosen one on: this choice takes all files.
constexpr int Gewaehlt = Messbetrieb::ErstesJahr + 1;
constexpr int Vorher = Gewaehlt + 1;

Ausschnitt ganzesJahr(int jahr)
{
    return {QDate(jahr, 1, 1), QDate(jahr, 12, 31), {}, {}};
}

/// Both views: the sums of the file and its rows, opening ones included.
void pruefe(const Messbildschirm& bildschirm, BareAnsichten& bar)
{
    const auto schluessel = bar.schluessel(ganzesJahr(Gewaehlt));
    const auto liste = bar.bestandsliste(ganzesJahr(Gewaehlt));
    fordere(bildschirm.journal().RecordCount() == std::ssize(schluessel),
            u"rows are missing in the journal"_s);
    fordere((*bildschirm.journal().RowAt(0))[2].toLong() == schluessel.front(),
            u"the journal is another one"_s);
    fordere(bildschirm.bestandsliste().RecordCount() == std::ssize(liste),
            u"rows are missing in the stock list"_s);
    for (qsizetype i = 0; i < std::ssize(liste); ++i)
        fordere((*bildschirm.bestandsliste().RowAt(i))[2].toDouble() ==
                    liste[static_cast<std::size_t>(i)].bestand,
                u"a stock is wrong"_s);
}

/// What the screen does when a year is chosen, with statements alone: all files carried forward, the views
/// first bound to the file as they are, then filtered by its own days.
void wechsleBar(const QStringList& dateien, BareAnsichten& bar)
{
    barerUebertrag(dateien, Messbetrieb::ErstesJahr);
    for (const int jahr : {Vorher, Gewaehlt}) {
        if (jahr == Gewaehlt) bar.repariere();
        bar.schluessel(ganzesJahr(jahr));
        bar.bestandsliste(ganzesJahr(jahr));
    }
}

void messeJahreswechsel(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare, Jahre);
    fordere(JahresUbertrag(), u"the first carry-forward failed"_s); // from now on it finds nothing to change
    QStringList dateien;
    for (int jahr = Messbetrieb::ErstesJahr; jahr < Messbetrieb::ErstesJahr + Jahre; ++jahr)
        dateien.append(betrieb.journaldatei(jahr));
    BareAnsichten bar(betrieb.journaldatei(Gewaehlt));
    Messbildschirm bildschirm;
    bildschirm.waehleJahr(Gewaehlt);
    pruefe(bildschirm, bar);

    Messung messung(u"Change of year, "_s + QString::number(umfang.paare) + u" pairs, "_s +
                        QString::number(Jahre) + u" files of "_s + QString::number(umfang.zeilen) +
                        u" rows"_s,
                    1);
    messung.nimm(u"limit: its statements bare"_s, 0, [&] { wechsleBar(dateien, bar); });
    messung.nimm(
        u"drpJahr_Click"_s, 1.3, [&] { bildschirm.waehleJahr(Gewaehlt); },
        [&] { bildschirm.waehleJahr(Vorher); });
    messung.miss(umfang.runden);
    pruefe(bildschirm, bar);
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {20'000, 1'000, 10}, {100'000, 5'000, 5}, messeJahreswechsel);
}
