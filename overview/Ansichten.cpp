#include "overview/Ansichten.h"

#include "core/Bestand.h"
#include "core/Journaldatei.h"
#include "core/SQLTexte.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/GridSortieren.h"
#include "platform/controls/RowIds.h"
#include "platform/jet/TextLiteral.h"

#include <algorithm>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString Journalquelle =
    u"Select IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, *"
    u"  FROM LAGERJOURNAL ORDER BY DATUM, ID"_s;
const QString Bestandsquelle =
    u"Select Sum(IIF(Menge < 0, -Menge,0)) as Abgang, Sum(IIF(Menge > 0, Menge,0)) as Zugang, Sum(Menge) as "
    u"Bestand,"
    u" Artikel,  LagerortKurzku, Artikelart, Einheit, First(Untergruppe) as UGruppe FROM LAGERJOURNAL"
    u" GROUP BY ARTIKEL,  LagerortKurzku, Artikelart, Einheit ORDER BY ARTIKEL"_s;

const QString Ordnung = u" ORDER BY "_s; // as all texts have it, of which the views are made

const QString NichtGelesen = u"Die Datei konnte nicht gelesen werden; F5 versucht es noch einmal"_s;

struct Spalte {
    QStringView titel, feld, format;
};

// clang-format off
constexpr Spalte Journalspalten[] = {
    {u"Datum",            u"Datum",          u""},
    {u"Artikel",          u"Artikel",        u""},
    {u"Artikelgruppe",    u"Artikelart",     u""},
    {u"Buchungsart",      u"Buchungsart",    u""},
    {u"Lagerort",         u"LagerortKurzKu", u""},
    {u"Zugang",           u"Zugang",         u"##,#0.00"}, // sic: the same as ##,##0.00
    {u"Abgang",           u"Abgang",         u"##,#0.00"},
    {u"Einheit",          u"Einheit",        u""},
    {u"Preis",            u"Preis",          u"##,##0.00"},
    {u"Geschäftspartner", u"Uberstallt_alt", u""},
    {u"Kommentar",        u"Kommentar",      u""},
};
constexpr Spalte Bestandsspalten[] = {
    {u"Artikel",           u"Artikel",        u""},
    {u"Artikelgruppe",     u"Artikelart",     u""},
    {u"Lagerort",          u"LagerortKurzKu", u""},
    {u"Summe Zugang",      u"Zugang",         u"##,#0.00"},
    {u"Summe Abgang",      u"Abgang",         u"##,#0.00"},
    {u"Aktueller Bestand", u"Bestand",        u"##,##0.00"},
    {u"Einheit",           u"Einheit",        u""},
};
// clang-format on

/// What a computed column sorts by; a column of the table sorts by itself.
struct Ersatz {
    QStringView feld, ausdruck;
};
constexpr Ersatz Journalersatz[] = {{u"zugang", u"Menge"}, {u"abgang", u"Menge"}};
constexpr Ersatz Bestandsersatz[] = {
    {u"zugang", u"Sum(IIF(Menge > 0, Menge,0))"},
    {u"abgang", u"Sum(IIF(Menge < 0, Menge,0))"},
    {u"bestand", u"Sum(Menge)"},
};

/// A quantity of nothing shows nothing. It is the value that counts: what is rounded to 0,00 shows that.
bool istNullmenge(const GridColumn& spalte, const jet::Value& wert)
{
    if (!jet::isNumber(wert.type()) || wert.toDouble() != 0) return false;
    const QString feld = spalte.DataField().toLower();
    return feld == u"zugang" || feld == u"abgang" || feld == u"bestand";
}

/// The views begin sorted by their first column.
template <std::size_t Anzahl>
void richteEin(DataControl& daten, DataGrid& liste, const Spalte (&spalten)[Anzahl])
{
    for (const Spalte& spalte : spalten)
        liste.addColumn(spalte.titel.toString(), spalte.feld.toString(), spalte.format.toString());
    liste.setBlank(istNullmenge);
    liste.setDataSource(daten);
    GridVorsortieren(daten, liste, 0);
}

/// Whether the file or a number in it is at fault and not the text of the statement, which will do once that
/// is mended.
bool liegtAnDerDatei(jet::ErrorNumber fehler)
{
    using enum jet::ErrorNumber;
    constexpr jet::ErrorNumber Dateifehler[] = {Overflow,  FileNotFound,  ReadOnly,           WrongPassword,
                                                DiskError, PathNotFound,  CannotOpenFile,     DiskFull,
                                                Locked,    UnknownFormat, UnknownDatabaseType};
    return std::ranges::find(Dateifehler, fehler) != std::end(Dateifehler);
}

struct Ansicht {
    DataControl& daten;
    DataGrid& liste;
    const QString& ersteQuelle;
};

Ansicht journal(const Hauptansicht& haupt)
{
    return {haupt.Journaldaten, haupt.Journalliste, Journalquelle};
}

Ansicht bestand(const Hauptansicht& haupt)
{
    return {haupt.Bestanddaten, haupt.BestandListe, Bestandsquelle};
}

/// What stands before the order: names in a filter come before it, too, so it is the last.
QString vorOrdnung(const QString& quelle)
{
    return quelle.left(quelle.lastIndexOf(Ordnung));
}

/// Opens a view in a way that may fail. A source that the database refuses is given up for the view's first
/// one, and the sort mark goes off: what broke this text must not break all that come after it. The other
/// view's text has the same name in it, although its rows are there: it would break in turn.
void oeffne(const Ansicht& diese, const Ansicht& andere, const std::function<void()>& oeffnen)
{
    try {
        oeffnen();
    } catch (const jet::Error& fehler) {
        if (!liegtAnDerDatei(fehler.number())) {
            diese.daten.setRecordSource(diese.ersteQuelle);
            SortiermarkeLoschen(diese.liste);
            const QString quelle = andere.daten.RecordSource();
            andere.daten.setRecordSource(vorOrdnung(andere.ersteQuelle) +
                                         quelle.mid(vorOrdnung(quelle).size()));
        }
        throw;
    }
}

void oeffne(const Ansicht& diese, const Ansicht& andere, const QString& quelle)
{
    oeffne(diese, andere, [&] {
        diese.daten.setRecordSource(quelle);
        diese.daten.RefreshIfChanged(); // a mask that has booked has just read the stock list
    });
}

/// What finds the stock list's current row again; empty where there is none. An apostrophe in a name is
/// doubled: this look-up is no user's.
QString aktuellerBestand(const DataControl& daten)
{
    if (daten.AbsolutePosition() < 0) return {};
    const auto wert = [&](QStringView feld) { return jet::textLiteral(daten.Recordset()[feld].toText()); };
    return u"Artikel = "_s + wert(u"Artikel") + u" AND LagerortKurzKu = "_s + wert(u"LagerortKurzKu");
}

template <std::size_t Anzahl>
QString ersatz(const Ersatz (&liste)[Anzahl], const QString& feld)
{
    for (const Ersatz& zeile : liste) {
        if (zeile.feld == feld.toLower()) return zeile.ausdruck.toString();
    }
    return {};
}

} // namespace

void richteJournalEin(DataControl& daten, DataGrid& liste)
{
    daten.setRecordSource(Journalquelle);
    liste.setEmptyText(u"Keine Bewegungen in dieser Ansicht"_s);
    liste.setClosedText(NichtGelesen);
    richteEin(daten, liste, Journalspalten);
}

void richteBestandslisteEin(DataControl& daten, DataGrid& liste)
{
    daten.setRecordSource(Bestandsquelle);
    daten.setRecordsetType(jet::Kind::Snapshot);
    liste.setEmptyText(u"Keine Artikel in dieser Ansicht"_s);
    liste.setClosedText(NichtGelesen);
    liste.setAllowDelete(false);
    richteEin(daten, liste, Bestandsspalten);
}

bool brauchtFilter(const DataControl& daten)
{
    const QString quelle = vorOrdnung(daten.RecordSource());
    return quelle == vorOrdnung(Journalquelle) || quelle == vorOrdnung(Bestandsquelle);
}

bool sucheEine(DataControl& daten, const Wiederfinden& gesucht)
{
    const auto gezeigt = [&](qint64 ID) {
        findId(daten, ID);
        return !daten.NoMatch();
    };
    if (daten.RecordCount() == 0) return !gesucht.neue.empty();
    bool gefunden = false;
    bool verborgen = false;
    for (auto buchung = gesucht.neue.rbegin(); buchung != gesucht.neue.rend();
         ++buchung) // the newest one last
        (std::ranges::any_of(*buchung, gezeigt) ? gefunden : verborgen) = true;
    if (!gefunden && !(gesucht.vorher && gezeigt(*gesucht.vorher)))
        daten.MoveTo(std::clamp(gesucht.platz, qsizetype{0}, daten.RecordCount() - 1));
    return verborgen;
}

void filtereJournal(const Hauptansicht& haupt, const QString& eingrenzung)
{
    const auto id = currentId(haupt.Journaldaten);
    const QString alt = haupt.Journaldaten.RecordSource();
    oeffne(journal(haupt), bestand(haupt), SQLVorWhere(alt) + eingrenzung + SQLAbOrder(alt));
    findId(haupt.Journaldaten, id);
}

void filtereBestandsliste(const Hauptansicht& haupt, const QString& eingrenzung,
                          const Bestandsansicht& ansicht)
{
    DataControl& daten = haupt.Bestanddaten;
    const QString aktueller = aktuellerBestand(daten);
    haupt.BestandListe.Columns(u"LagerortKurzKu").setVisible(!ansicht.inSumme);
    try {
        oeffne(bestand(haupt), journal(haupt),
               bestandsquelle(eingrenzung, ansicht, SQLAbOrder(daten.RecordSource())));
    } catch (const jet::Error& fehler) {
        if (fehler.number() != jet::ErrorNumber::Overflow) throw;
        throw mitArtikel(fehler, *oeffneJournaldatei(), u"Menge"_s, eingrenzung);
    }
    if (!aktueller.isEmpty()) daten.FindFirst(aktueller);
}

void sortiereJournal(const Hauptansicht& haupt, int spalte)
{
    const auto id = currentId(haupt.Journaldaten);
    const QString feld = spalte < 0 ? QString() : haupt.Journalliste.Columns(spalte).DataField();
    const QString ausdruck = ersatz(Journalersatz, feld);
    const QString zweitesFeld = ausdruck.isEmpty() ? u"Datum"_s : QString();
    oeffne(journal(haupt), bestand(haupt), [&] {
        GridSortieren(haupt.Journaldaten, haupt.Journalliste, spalte,
                      {.ausdruck = ausdruck, .zweitesFeld = zweitesFeld});
    });
    findId(haupt.Journaldaten, id);
}

void sortiereBestandsliste(const Hauptansicht& haupt, int spalte)
{
    const QString feld = spalte < 0 ? QString() : haupt.BestandListe.Columns(spalte).DataField();
    oeffne(bestand(haupt), journal(haupt), [&] {
        GridSortieren(haupt.Bestanddaten, haupt.BestandListe, spalte,
                      {.ausdruck = ersatz(Bestandsersatz, feld)});
    });
}

void zeigeZeilenzahl(const DataControl& daten, DataGrid& liste, const QString& eine, const QString& mehrere)
{
    if (!daten.isOpen()) return liste.setCaption(u"Nicht gelesen"_s);
    const qsizetype zeilen = daten.RecordCount();
    liste.setCaption(QString::number(zeilen) + u' ' + (zeilen == 1 ? eine : mehrere));
}
