#include "core/Bestand.h"

#include "core/Datumstext.h"
#include "core/Journaldatei.h"
#include "core/SQLTexte.h"
#include "core/farm/Dateien.h"
#include "platform/jet/Errors.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Path.h"

using namespace Qt::StringLiterals;

namespace {

/// A question looks at the file once: whether it is there, opening it tells. \returns no value: it is not.
std::unique_ptr<jet::Database> oeffneWennVorhanden(const QString& datei)
{
    try {
        return oeffneFuerBestand(datei);
    } catch (const jet::Error&) {
        if (!sys::Exist(datei)) return nullptr;
        throw;
    }
}

} // namespace

double BestandErmitteln(const QString& Artikel, const QString& Lagerort, QDate Stichtag)
{
    if (!Stichtag.isValid())
        throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Der Stichtag ist kein gültiges Datum."_s);
    const QString datei = Journaldatei(Stichtag.year()); // earlier years enter through its opening rows
    const auto journal = oeffneWennVorhanden(datei);
    if (!journal) {
        sys::critical(u"Der Dateiname "_s + sys::localPath(datei) + u" existiert nicht!"_s);
        return 0;
    }
    // Names go in as they are, an apostrophe breaks the statement: an error is better than another article's
    // stock.
    const auto summe = journal->OpenRecordset(
        u"SELECT Lagerjournal.Artikel, Lagerjournal.LagerortKurzKu, Sum(Lagerjournal.Menge) AS SumMenge"
        u" From Lagerjournal WHERE (((Lagerjournal.Datum)<="_s +
            SQLDatum(datumText(Stichtag)) + u") And Artikel = '"_s + Artikel + u"' And LagerortKurzKu ='"_s +
            Lagerort + u"') GROUP BY Lagerjournal.Artikel, Lagerjournal.LagerortKurzKu"_s,
        jet::Kind::Snapshot);
    if (summe->Eof()) return 0;
    return (*summe)[u"SumMenge"].toDouble(); // NULL, a journal of empty quantities, counts as 0
}

jet::Error mitArtikel(const jet::Error& fehler, jet::Database& journal, const QString& spalte,
                      const QString& eingrenzung)
{
    if (fehler.number() != jet::ErrorNumber::Overflow) return fehler;
    const auto paar = journal.OpenRecordset(
        u"SELECT TOP 1 Artikel, LagerortKurzKu FROM Lagerjournal "_s + eingrenzung +
            u" GROUP BY Artikel, LagerortKurzKu HAVING Sum(Abs("_s + spalte +
            u")) > 1.7976931348623157E308"_s, // the largest number: only infinity is above it
        jet::Kind::Snapshot);
    if (paar->Eof()) return fehler;
    return jet::named(jet::named(fehler, u"Artikel"_s, (*paar)[u"Artikel"].toText()), u"Lagerort"_s,
                      (*paar)[u"LagerortKurzKu"].toText());
}
