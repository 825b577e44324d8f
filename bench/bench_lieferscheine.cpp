// The delivery notes of a large year: numbering of many deliveries, and the screen that lists them.

#include "bench/Bare.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include "delivery/LieferscheindruckForm.h"
#include "delivery/Lieferscheinnummern.h"
#include "platform/controls/DataControl.h"
#include "platform/jet/Engine.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Jahr = Messbetrieb::ErstesJahr;
constexpr double Bildschirm = 50; // ms: what is felt as at once

/// Sales of two articles each, spread over days and recipients.
void verkaufe(jet::Database& datei, int lieferungen)
{
    constexpr int Tage = 366;
    datei.BeginTrans();
    const auto journal = datei.OpenRecordset(u"LAGERJOURNAL"_s);
    for (int i = 0; i < 2 * lieferungen; ++i) {
        journal->AddNew();
        journal->Set(u"Datum", QDate(Jahr, 1, 1).addDays(i / 2 % Tage));
        journal->Set(u"Buchungsart", u"Verkauf"_s);
        journal->Set(u"Uberstallt_alt", u"KUNDE "_s + QString::number(i / 2 / Tage));
        journal->Set(u"Artikel", Musterjournal::artikel(i % 2));
        journal->Set(u"Menge", -1);
        journal->Update();
    }
    datei.Close();
}

/// The same statements, prepared.
void nummeriereBar(const QString& datei)
{
    BareFile bar(datei);
    bar.execute("BEGIN IMMEDIATE");
    BareStatement hoechste(bar,
                           "SELECT max(Lieferscheinnummer) FROM LAGERJOURNAL WHERE Buchungsart='Verkauf' %C");
    hoechste.step();
    qint64 nummer = hoechste.whole(0);
    hoechste.reset();
    BareStatement lieferungen(
        bar, "SELECT DISTINCT Datum,Uberstallt_alt FROM LAGERJOURNAL WHERE Buchungsart='Verkauf' %C"
             " AND ifnull(Lieferscheinnummer,0)=0 AND trim(ifnull(Uberstallt_alt,''))<>''"
             " ORDER BY Datum,Uberstallt_alt %C");
    std::vector<std::pair<QByteArray, QByteArray>> liste;
    while (lieferungen.step())
        liste.emplace_back(lieferungen.text(0), lieferungen.text(1));
    lieferungen.reset();
    BareStatement vergib(bar,
                         "UPDATE LAGERJOURNAL SET Lieferscheinnummer=? WHERE ifnull(Lieferscheinnummer,0)=0"
                         " AND Buchungsart='Verkauf' %C AND Datum=? AND ifnull(Uberstallt_alt,'')=? %C");
    for (const auto& [tag, empfaenger] : liste) {
        vergib.bind(1, ++nummer);
        vergib.bind(2, tag);
        vergib.bind(3, empfaenger);
        vergib.run();
    }
    bar.execute("COMMIT");
}

void vergiss(const QString& datei)
{
    jet::engine().OpenDatabase(datei)->Execute(u"UPDATE LAGERJOURNAL SET Lieferscheinnummer = NULL"_s);
}

std::vector<qint64> nummern(const QString& datei)
{
    BareFile bar(datei);
    BareStatement zeilen(bar, "SELECT Lieferscheinnummer FROM LAGERJOURNAL ORDER BY ID");
    std::vector<qint64> alle;
    while (zeilen.step())
        alle.push_back(zeilen.whole(0));
    return alle;
}

void messeLieferscheine(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    const QString datei = betrieb.journaldatei(Jahr);
    verkaufe(*jet::engine().OpenDatabase(datei), umfang.paare);
    const auto unser = [] { fordere(Lieferscheinnummern(Jahr).vergib(), u"the numbering was left"_s); };
    nummeriereBar(datei);
    const auto bar = nummern(datei);
    vergiss(datei);
    unser();
    fordere(nummern(datei) == bar, u"the numbers differ"_s);

    const QString groesse = QString::number(umfang.paare) + u" deliveries and those among "_s +
                            QString::number(umfang.zeilen) + u" rows"_s;
    Messung nummerierung(u"Numbering of "_s + groesse, 1);
    nummerierung.nimm(
        u"limit: its statements bare"_s, 0, [&] { nummeriereBar(datei); }, [&] { vergiss(datei); });
    nummerierung.nimm(u"Lieferscheinnummern"_s, 2, unser, [&] { vergiss(datei); });
    nummerierung.miss(umfang.runden);
    missEinzeln(u"The screen with "_s + groesse + u", all numbered"_s, Bildschirm, umfang.runden, [](int) {
        LieferscheindruckForm fenster(Jahr);
        zeigeBisGemalt(fenster);
        const auto& daten = *fenster.findChild<DataControl*>(u"Lieferscheindaten"_s);
        fordere(daten.RecordCount() > 0, u"the screen lists nothing"_s);
    });
}

} // namespace

int main(int argc, char** argv)
{
    return messeBildschirm(argc, argv, {100'000, 5'000, 10}, {1'000'000, 5'000, 5}, messeLieferscheine);
}
