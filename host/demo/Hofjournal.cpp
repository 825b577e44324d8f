#include "host/demo/Hofjournal.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NummernJeJahr = 10'000;

double zahl(qint64 hundertstel)
{
    return double(hundertstel) / 100;
}

/// Begins a row with what every kind of booking has.
void beginneZeile(jet::Recordset& journal, const Buchung& buchung, const Ware& ware, const QString& ort, qint64 menge)
{
    journal.AddNew();
    journal.Set(u"Datum", buchung.tag);
    journal.Set(u"Artikel", ware.name);
    journal.Set(u"Artikelart", ware.artikelart);
    journal.Set(u"LagerortKurzKu", ort);
    journal.Set(u"Menge", zahl(menge));
    journal.Set(u"Buchungsmenge", zahl(menge));
    journal.Set(u"Einheit", ware.einheit);
    journal.Set(u"Buchungsart", buchung.buchungsart);
    journal.Set(u"Kommentar", buchung.kommentar);
    journal.Set(u"Untergruppe", ware.untergruppe);
    journal.Set(u"BuchungsID", 0);
}

/// Makes the written row the current one. \returns its ID.
QString geschrieben(jet::Recordset& journal)
{
    journal.Update();
    journal.SetBookmark(journal.LastModified());
    return journal[u"ID"].toText();
}

void bucheUm(jet::Recordset& journal, const Buchung& buchung)
{
    beginneZeile(journal, buchung, *buchung.ware, buchung.ort, buchung.menge);
    const QString abgang = geschrieben(journal);
    const jet::Bookmark abgangszeile = journal.GetBookmark();

    beginneZeile(journal, buchung, *buchung.nachWare, buchung.nachOrt, -buchung.menge);
    journal.Set(u"Verfuttert_an", abgang);
    const QString zugang = geschrieben(journal);

    journal.SetBookmark(abgangszeile);
    journal.Edit();
    journal.Set(u"Verfuttert_an", zugang);
    journal.Update();
}

/// `nummer` is 0 for what was booked here, else that of the field records.
void bucheEinzeln(jet::Recordset& journal, const Buchung& buchung, int nummer)
{
    beginneZeile(journal, buchung, *buchung.ware, buchung.ort, buchung.menge);
    if (buchung.buchungsart != u"Korrektur"_s) { // its mask has neither price nor partner
        journal.Set(u"Preis", zahl(jahrespreis(*buchung.ware, buchung.tag.year())));
        journal.Set(u"Preisfaktor", buchung.ware->preisfaktor);
        journal.Set(u"Uberstallt_alt", buchung.partner);
        journal.Set(u"Verfuttert_an", buchung.merkmal);
    }
    if (nummer > 0) {
        journal.Set(u"BuchungsID", nummer);
        journal.Set(u"BEErfassungsnummer", buchung.tag.year() % 100 * NummernJeJahr + nummer);
    }
    journal.Update();
}

} // namespace

void buche(jet::Database& journal, const std::vector<Buchung>& buchungen)
{
    journal.BeginTrans();
    const auto zeilen = journal.OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
    int nummer = 0;
    for (const Buchung& buchung : buchungen) {
        if (buchung.nachWare)
            bucheUm(*zeilen, buchung);
        else
            bucheEinzeln(*zeilen, buchung, buchung.ausSchollwart ? ++nummer : 0);
    }
    journal.CommitTrans();
}

void ergaenzeUntergruppen(jet::Database& journal, const Sortiment& sortiment)
{
    journal.BeginTrans();
    const auto zeilen =
        journal.OpenRecordset(u"SELECT * FROM LAGERJOURNAL WHERE Buchungsart = 'Anfangsbestand'"_s, jet::Kind::Dynaset);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        zeilen->Edit();
        zeilen->Set(u"Untergruppe", sortiment.ware((*zeilen)[u"Artikel"].toText()).untergruppe);
        zeilen->Update();
    }
    journal.CommitTrans();
}
