#include "host/demo/Hofjournal.h"

#include "core/farm/Buchung.h"
#include "core/farm/Buchungsarten.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NummernJeJahr = 10'000;

double zahl(qint64 hundertstel)
{
    return double(hundertstel) / 100;
}

/// What every kind of booking has.
Buchung zeile(const Vorgang& vorgang, const Ware& ware, const QString& ort, qint64 menge)
{
    Buchung neu;
    neu.Datum = vorgang.tag;
    neu.Artikel = ware.name;
    neu.Artikelart = ware.artikelart;
    neu.LagerortKurzKu = ort;
    neu.Menge = zahl(menge);
    neu.Buchungsmenge = zahl(menge);
    neu.Einheit = ware.einheit;
    neu.Buchungsart = vorgang.buchungsart;
    neu.Kommentar = vorgang.kommentar;
    neu.Untergruppe = ware.untergruppe;
    neu.BuchungsID = 0;
    return neu;
}

/// Adds a row, which is then the current one. \returns its ID.
QString schreibe(jet::Recordset& journal, const Buchung& neu)
{
    journal.AddNew();
    setze(journal, neu);
    journal.Update();
    journal.SetBookmark(journal.LastModified());
    return journal[u"ID"].toText();
}

void bucheUm(jet::Recordset& journal, const Vorgang& vorgang)
{
    const QString abgang = schreibe(journal, zeile(vorgang, *vorgang.ware, vorgang.ort, vorgang.menge));
    const jet::Bookmark abgangszeile = journal.GetBookmark();
    Buchung gegenbuchung = zeile(vorgang, *vorgang.nachWare, vorgang.nachOrt, -vorgang.menge);
    gegenbuchung.Verfuttert_an = abgang;
    Buchung verweis;
    verweis.Verfuttert_an = schreibe(journal, gegenbuchung);
    journal.SetBookmark(abgangszeile);
    journal.Edit();
    setze(journal, verweis);
    journal.Update();
}

/// `nummer` is 0 for what was booked here, else that of the field records.
void bucheEinzeln(jet::Recordset& journal, const Vorgang& vorgang, int nummer)
{
    Buchung neu = zeile(vorgang, *vorgang.ware, vorgang.ort, vorgang.menge);
    if (vorgang.buchungsart != buchungsart::Korrektur) { // its mask has neither price nor partner
        neu.Preis = zahl(jahrespreis(*vorgang.ware, vorgang.tag.year()));
        neu.Preisfaktor = vorgang.ware->preisfaktor;
        neu.Uberstallt_alt = vorgang.partner;
        neu.Verfuttert_an = vorgang.merkmal;
    }
    if (nummer > 0) {
        neu.BuchungsID = nummer;
        neu.BEErfassungsnummer = vorgang.tag.year() % 100 * NummernJeJahr + nummer;
    }
    schreibe(journal, neu);
}

} // namespace

void buche(jet::Database& journal, const std::vector<Vorgang>& buchungen)
{
    journal.BeginTrans();
    const auto zeilen = journal.OpenRecordset(u"LAGERJOURNAL"_s);
    int nummer = 0;
    for (const Vorgang& vorgang : buchungen) {
        if (vorgang.nachWare)
            bucheUm(*zeilen, vorgang);
        else
            bucheEinzeln(*zeilen, vorgang, vorgang.ausSchollwart ? ++nummer : 0);
    }
    journal.CommitTrans();
}

void ergaenzeUntergruppen(jet::Database& journal, const Sortiment& sortiment)
{
    journal.BeginTrans();
    const auto zeilen = journal.OpenRecordset(
        u"SELECT * FROM LAGERJOURNAL WHERE Buchungsart = 'Anfangsbestand'"_s, jet::Kind::Dynaset);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        zeilen->Edit();
        zeilen->Set(u"Untergruppe", sortiment.ware((*zeilen)[u"Artikel"].toText()).untergruppe);
        zeilen->Update();
    }
    journal.CommitTrans();
}
