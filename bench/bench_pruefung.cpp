// The check of a farm of five years against what reading its files takes anyway.

#include "bench/Bare.h"
#include "bench/Messbetrieb.h"
#include "bench/Messung.h"

#include "core/farm/pruefung/Pruefung.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Jahre = 5;

/// Whether a file is whole, and each of its rows read.
void liesBar(const QString& datei, int zeilen)
{
    BareFile bar(datei);
    BareStatement heil(bar, "PRAGMA integrity_check");
    fordere(heil.step() && heil.text(0) == "ok", u"the file is not whole"_s);
    BareStatement alle(bar, "SELECT ID,Datum,Menge,Artikel,Artikelart,LagerortKurzKu,Einheit,Buchungsart,"
                            "Uberstallt_alt,Verfuttert_an,Lieferscheinnummer FROM LAGERJOURNAL ORDER BY ID");
    int gelesene = 0;
    double summe = 0;
    for (; alle.step(); ++gelesene) {
        summe += alle.number(2) + alle.number(0) + alle.number(10);
        for (const int spalte : {1, 3, 4, 5, 6, 7, 8, 9})
            summe += double(alle.text(spalte).size());
    }
    fordere(gelesene == zeilen && summe != 0, u"rows are missing"_s);
}

void messePruefung(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare, Jahre);
    const Installation ort(betrieb.verzeichnis());
    const Pruefziel ziel{ort.daten(), ort.programm(), ort.anlagen(), ort.betriebe()};
    // The years were made one by one: each lacks the opening rows of the year before, of which some are told.
    const auto befunde = pruefe(ziel);
    fordere(std::ranges::count(befunde, Befundart::Anfangsbestand, &Befund::art) > Jahre - 1,
            u"nothing was found"_s);

    Messung pruefung(u"Check of %1 years of %2 rows"_s.arg(Jahre).arg(umfang.zeilen), 1);
    pruefung.nimm(u"limit: integrity check and all rows, bare"_s, 0, [&] {
        for (int jahr = Messbetrieb::ErstesJahr; jahr < Messbetrieb::ErstesJahr + Jahre; ++jahr)
            liesBar(betrieb.journaldatei(jahr), umfang.zeilen);
    });
    pruefung.nimm(u"pruefe"_s, 1.5, [&] { pruefe(ziel); });
    pruefung.miss(umfang.runden);
}

} // namespace

int main(int argc, char** argv)
{
    return messe(argc, argv, {20'000, 500, 5}, {200'000, 5'000, 5}, messePruefung);
}
