#include "core/inventur/Zaehlung.h"

#include "core/Datumstext.h"
#include "core/Journaldatei.h"
#include "core/Ruecknahme.h"
#include "core/farm/Buchung.h"
#include "core/farm/Buchungsarten.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// The columns that the correction mask writes.
Buchung korrektur(const Zaehlzeile& zeile, QDate tag)
{
    Buchung neu;
    neu.Datum = tag;
    neu.Artikel = zeile.paar.Artikel;
    neu.Artikelart = zeile.Artikelart;
    neu.LagerortKurzKu = zeile.paar.LagerortKurzKu;
    neu.Menge = zeile.Differenz();
    neu.Buchungsmenge = neu.Menge;
    neu.Einheit = zeile.Einheit;
    neu.Buchungsart = buchungsart::Korrektur.toString();
    neu.BuchungsID = 0; // of no sibling program
    neu.Kommentar = u"Inventur"_s;
    return neu;
}

qint64 hoechsteID(jet::Database& journal)
{
    const auto hoechste =
        journal.OpenRecordset(u"SELECT Max(ID) AS Hoechste FROM LAGERJOURNAL"_s, jet::Kind::Snapshot);
    const auto ID = (*hoechste)[u"Hoechste"];
    return ID.isNull() ? 0 : ID.toLong();
}

/// Those that are as they were shown; the others go into the result.
std::vector<Zaehlzeile> unveraenderte(jet::Database& journal, const std::vector<Zaehlzeile>& zeilen,
                                      QDate tag, Zaehlergebnis& ergebnis)
{
    std::map<Paar, Zaehlzeile> jetzt;
    for (const Zaehlzeile& zeile : zaehlliste(journal, tag))
        jetzt.emplace(zeile.paar, zeile);
    std::vector<Zaehlzeile> bleibende;
    for (const Zaehlzeile& zeile : zeilen) {
        if (!zeile.Gezaehlt || zeile.ZweiEinheiten) continue;
        const auto gefunden = jetzt.find(zeile.paar);
        Zaehlzeile neu = zeile;
        neu.Bestand = 0; // of a pair whose rows somebody has deleted
        if (gefunden != jetzt.end()) neu = gefunden->second;
        neu.Gezaehlt = zeile.Gezaehlt;
        if (neu.Bestand != zeile.Bestand || neu.ZweiEinheiten)
            ergebnis.geaendert.push_back(neu);
        else
            bleibende.push_back(neu);
    }
    return bleibende;
}

void schreibe(jet::Database& journal, const std::vector<Zaehlzeile>& zeilen, QDate tag,
              Aufzeichnung& aufzeichnung)
{
    const auto ziel = journal.OpenRecordset(u"LAGERJOURNAL"_s);
    for (const Zaehlzeile& zeile : zeilen) {
        ziel->AddNew();
        setze(*ziel, korrektur(zeile, tag));
        ziel->Update();
        ziel->SetBookmark(ziel->LastModified());
        aufzeichnung.neu((*ziel)[u"ID"].toLong());
    }
}

} // namespace

Zaehlergebnis bucheZaehlung(const std::vector<Zaehlzeile>& zeilen, Zaehldatei& datei)
{
    const auto journal = oeffneJournaldatei();
    journal->BeginTrans(); // from the look at the stocks to the last row nobody else writes
    auto nichts = qScopeGuard([&] { journal->Rollback(); });
    Zaehlergebnis ergebnis;
    const auto gezaehlte = unveraenderte(*journal, zeilen, datei.Tag(), ergebnis);
    Zaehldatei::Zaehlungen mengen;
    for (const Zaehlzeile& zeile : gezaehlte)
        mengen.emplace(zeile.paar, *zeile.Differenz());
    Aufzeichnung aufzeichnung(*journal, u"die Zählung vom "_s + datumText(datei.Tag()) + u" mit "_s +
                                            QString::number(gezaehlte.size()) +
                                            (gezaehlte.size() == 1 ? u" Zeile"_s : u" Zeilen"_s));
    datei.merkeBuchung(hoechsteID(*journal), mengen);
    schreibe(*journal, gezaehlte, datei.Tag(), aufzeichnung);
    journal->CommitTrans();
    nichts.dismiss();
    aufzeichnung.fertig();
    datei.erledigt();
    ergebnis.gebucht = static_cast<int>(gezaehlte.size());
    return ergebnis;
}
