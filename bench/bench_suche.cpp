// Find as you type in the journal: a letter, from the key to the row that it finds or to the answer that
// there is none.

#include "bench/Bare.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

using namespace Qt::StringLiterals;

namespace {

struct Fall {
    int spalte;
    const char* feld;
    const char* wort;
};

// clang-format off
constexpr Fall Faelle[] = {
    {1, "Artikel",     "w"}, {1, "Artikel", "x"}, {2, "Artikelart",     "w"}, {3, "Buchungsart", "k"},
    {4, "LagerortKurzKu", "x"}, {5, "Menge", "x"}, {5, "Menge",         "77"}, {5, "Menge",     "999"},
    {7, "Einheit",     "x"}, {8, "Preis", "99"},  {9, "Uberstallt_alt", "x"}, {10, "Kommentar",  "l"},
};
// clang-format on

void messeSuche(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    BareFile datei(betrieb.journaldatei(Messbetrieb::ErstesJahr));
    Messbildschirm bildschirm;
    const auto miss = [&](const QString& titel) {
        for (const Fall& fall : Faelle) {
            BareStatement blosse(datei, QByteArray("SELECT count(*) FROM LAGERJOURNAL WHERE +") + fall.feld +
                                            " LIKE '" + fall.wort + "%'");
            const QString wort = QString::fromLatin1(fall.wort);
            const auto suche = [&] { return bildschirm.tippe("Journalliste", fall.spalte, wort); };
            blosse.step();
            fordere(suche() == (blosse.number(0) > 0), u"found something else: "_s + wort);
            blosse.reset();
            missEinzeln(titel + u", "_s + wort + u" in "_s + QLatin1String(fall.feld), 100, umfang.runden,
                        [&](int) { suche(); });
        }
    };
    drucke(u"Find as you type, "_s + QString::number(umfang.zeilen) + u" rows, "_s +
           QString::number(umfang.paare) + u" pairs, "_s + QString::number(umfang.runden) + u" rounds"_s);
    miss(u"  sorted by day"_s);
    bildschirm.klickeKopf("Journalliste", 1);
    miss(u"  sorted by article"_s);
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 5}, {1'000'000, 5'000, 5}, messeSuche);
}
