#include "core/JahresUbertrag.h"

#include "core/Bestand.h"
#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "core/farm/Buchung.h"
#include "core/farm/Buchungsarten.h"
#include "core/farm/Dateien.h"
#include "core/farm/Jahresdateien.h"
#include "core/farm/Schema.h"
#include "core/farm/umbenennung/Umbenennungslauf.h"
#include "platform/jet/Errors.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/Transaction.h"
#include "platform/system/Messages.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// The farm's years from `ab` on. Each file is opened and its journal counted before the first row is
/// written, so that a damaged one ends the run with nothing changed.
std::vector<int> jahreAb(int ab)
{
    std::vector<int> jahre;
    for (const int jahr : journaljahre()) {
        if (jahr < ab) continue;
        oeffneJournal(jahr)->OpenRecordset(u"SELECT Count(*) FROM Lagerjournal"_s);
        jahre.push_back(jahr);
    }
    return jahre;
}

/// Every pair of article and storage place that has any row in the file, whatever its stock.
std::unique_ptr<jet::Recordset> paare(jet::Database& journal)
{
    try {
        return journal.OpenRecordset(
            u"SELECT Lagerjournal.Artikel, Lagerjournal.LagerortKurzKu, First(Artikelart) AS FirstArtikelart,"
            u" avg(Preis) AS FirstPreis, First(Preisfaktor) AS FirstPreisfaktor, First(Einheit) AS "
            u"FirstEinheit"
            u" FROM Lagerjournal GROUP BY Lagerjournal.Artikel, Lagerjournal.LagerortKurzKu"_s,
            jet::Kind::Snapshot);
    } catch (const jet::Error& fehler) {
        throw mitArtikel(fehler, journal, u"Preis"_s);
    }
}

/// Names the row of the year before at fault, where a value does not fit into the next one's file.
[[noreturn]] void nennePaar(const jet::Error& fehler, const jet::Recordset& paar)
{
    using enum jet::ErrorNumber;
    constexpr jet::ErrorNumber Wertfehler[] = {FieldTooLong, Overflow, ConversionFailed, ValueRequired,
                                               ValueNotAllowed};
    if (std::ranges::find(Wertfehler, fehler.number()) == std::end(Wertfehler)) throw fehler;
    throw jet::named(jet::named(fehler, u"Artikel"_s, paar[u"Artikel"].toText()), u"Lagerort"_s,
                     paar[u"LagerortKurzKu"].toText());
}

void schreibeAnfangsbestand(jet::Recordset& ziel, const jet::Recordset& paar, double bestand, int jahr)
{
    const auto text = [&](QStringView spalte) -> std::optional<QString> {
        if (const jet::Value wert = paar[spalte]; !wert.isNull()) return wert.toText();
        return {};
    };
    Buchung neu;
    neu.Datum = QDate(jahr, 1, 1);
    neu.Menge = bestand;
    neu.Buchungsart = buchungsart::Anfangsbestand.toString();
    neu.BuchungsID = 0;
    neu.Artikel = text(u"Artikel");
    neu.Artikelart = text(u"FirstArtikelart");
    neu.LagerortKurzKu = text(u"LagerortKurzKu");
    if (const jet::Value preis = paar[u"FirstPreis"]; !preis.isNull()) neu.Preis = preis.toDouble();
    neu.Preisfaktor = text(u"FirstPreisfaktor");
    neu.Einheit = text(u"FirstEinheit");
    ziel.AddNew();
    setze(ziel, neu);
    ziel.Update();
}

void uebertragePaar(jet::Recordset& ziel, const jet::Recordset& paar, int vonJahr, int nachJahr)
{
    const jet::Value artikel = paar[u"Artikel"];
    const jet::Value lagerort = paar[u"LagerortKurzKu"];
    if (artikel.isNull() || lagerort.isNull()) return; // no criterion finds NULL: each run would add a row
    const double bestand = BestandErmitteln(artikel.toText(), lagerort.toText(), QDate(vonJahr, 12, 31));

    ziel.FindFirst(u"Artikel = '"_s + artikel.toText() + u"' And LagerortKurzKu = '"_s + lagerort.toText() +
                   u"' And Buchungsart = 'Anfangsbestand'"_s);
    if (!ziel.NoMatch()) {
        ziel.Edit();
        ziel.Set(u"Menge",
                 bestand); // not rounded, unlike a new row: the row stays what the year before says, even 0
        ziel.Update();
        return;
    }
    const double gerundet = jet::Round(bestand, 4); // dust of sums must not open a row
    if (gerundet != 0) schreibeAnfangsbestand(ziel, paar, gerundet, nachJahr);
}

void uebertrage(jet::Recordset& quelle, int vonJahr, int nachJahr)
{
    const auto journal = oeffneJournal(nachJahr);
    if (!uebernimmtVorjahr(*journal)) return;
    bringeAufStandWennMoeglich(Dateiart::Lager, Journaldatei(nachJahr), verbindung(Dateiart::Lager));
    // Ten thousand rows cost one sync. It begins before the rows are listed, so that two programs that carry
    // forward at once find each other's opening rows.
    journal->BeginTrans();
    modulzustand().Ruecknahmen.clear(); // other rows rest on what was booked now
    const auto ziel = journal->OpenRecordset(u"Lagerjournal"_s, jet::Kind::Dynaset);
    const auto vorjahr = oeffneFuerBestand(Journaldatei(vonJahr)); // as each pair's question opens it
    const jet::Reading fragen(*vorjahr);
    for (; !quelle.Eof(); quelle.MoveNext()) {
        try {
            uebertragePaar(*ziel, quelle, vonJahr, nachJahr);
        } catch (const jet::Error& fehler) {
            nennePaar(fehler, quelle);
        }
    }
    journal->Close();
}

/// \returns from which year on the farm's stocks are to be carried forward then.
int beendeUmbenennung(int ab)
{
    const auto offene = unterbrochene(datenverzeichnis());
    if (!offene) return ab;
    sys::messages().show(u"Die Umbenennung von '"_s + offene->alt + u"' in '"_s + offene->neu +
                             u"' wurde unterbrochen und wird jetzt zu Ende geführt."_s,
                         sys::Information | sys::OKOnly);
    modulzustand().Ruecknahmen.clear(); // they would bring the old name back
    const ErsteJahre erste = fuehreZuEnde(datenverzeichnis());
    const auto betrieb = erste.find(modulzustand().Betriebsnummer);
    return betrieb == erste.end() ? ab : std::min(ab, betrieb->second);
}

} // namespace

bool JahresUbertrag()
{
    // An empty farm number passes: year files may lie in a folder "B".
    if (datenverzeichnis() == u"x"_s || modulzustand().Betriebsnummer == u"x"_s) {
        sys::critical(u"Kein Betrieb in der Registrierung eingestellt!"_s);
        return false;
    }
    const std::vector<int> jahre = jahreAb(beendeUmbenennung(modulzustand().Stichdatum.year()));
    // Ascending: a change in an early year flows through all later ones.
    for (std::size_t i = 0; i < jahre.size(); ++i) {
        const auto journal = oeffneJournal(jahre[i]);
        // of the last year too, so that a journal without a column is refused
        const auto quelle = paare(*journal);
        if (quelle->Eof() || i + 1 == jahre.size()) continue;
        uebertrage(*quelle, jahre[i], jahre[i + 1]);
    }
    return !jahre.empty();
}
