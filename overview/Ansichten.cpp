#include "overview/Ansichten.h"

#include "core/SQLTexte.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/GridSortieren.h"

#include <QScopeGuard>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString Journalquelle = u"Select IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, *"
                              u"  FROM LAGERJOURNAL ORDER BY DATUM, ID"_s;
const QString Bestandsquelle =
    u"Select Sum(IIF(Menge < 0, -Menge,0)) as Abgang, Sum(IIF(Menge > 0, Menge,0)) as Zugang, Sum(Menge) as Bestand,"
    u" Artikel,  LagerortKurzku, Artikelart, Einheit, First(Untergruppe) as UGruppe FROM LAGERJOURNAL"
    u" GROUP BY ARTIKEL,  LagerortKurzku, Artikelart, Einheit ORDER BY ARTIKEL"_s;

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
QString ohneNullen(const GridColumn& spalte, const jet::Value& wert, const QString& text)
{
    const QString feld = spalte.DataField().toLower();
    const bool istMenge = feld == u"zugang" || feld == u"abgang" || feld == u"bestand";
    return istMenge && (wert.isNull() || wert.toDouble() == 0) ? QString() : text;
}

/// The views begin sorted by their first column.
template <std::size_t Anzahl>
void richteEin(DataControl& daten, DataGrid& liste, const Spalte (&spalten)[Anzahl])
{
    for (const Spalte& spalte : spalten)
        liste.addColumn(spalte.titel.toString(), spalte.feld.toString(), spalte.format.toString());
    liste.setCellText(ohneNullen);
    liste.setDataSource(daten);
    GridVorsortieren(daten, liste, 0);
}

/// Opens a view by another source. One that the database refuses is given up for the view's first one, and the sort mark
/// goes off: what broke this text must not break all that come after it.
void oeffne(DataControl& daten, DataGrid& liste, const QString& quelle, const QString& ersteQuelle)
{
    auto zurueck = qScopeGuard([&] {
        daten.setRecordSource(ersteQuelle);
        SortiermarkeLoschen(liste);
    });
    daten.setRecordSource(quelle);
    daten.Refresh();
    zurueck.dismiss();
}

template <std::size_t Anzahl>
QString ersatz(const Ersatz (&liste)[Anzahl], const QString& feld)
{
    for (const Ersatz& zeile : liste) {
        if (zeile.feld == feld.toLower()) return zeile.ausdruck.toString();
    }
    return {};
}

/// Sorts as the click on a header says, under the same rule as oeffne().
void sortiere(DataControl& daten, DataGrid& liste, int spalte, const Sortierung& sortierung, const QString& ersteQuelle)
{
    auto zurueck = qScopeGuard([&] { daten.setRecordSource(ersteQuelle); });
    GridSortieren(daten, liste, spalte, sortierung);
    zurueck.dismiss();
}

} // namespace

void richteJournalEin(DataControl& daten, DataGrid& liste)
{
    daten.setRecordSource(Journalquelle);
    liste.setEmptyText(u"Keine Bewegungen in dieser Ansicht"_s);
    richteEin(daten, liste, Journalspalten);
}

void richteBestandslisteEin(DataControl& daten, DataGrid& liste)
{
    daten.setRecordSource(Bestandsquelle);
    daten.setRecordsetType(jet::Kind::Snapshot);
    liste.setEmptyText(u"Keine Artikel in dieser Ansicht"_s);
    liste.setAllowDelete(false);
    richteEin(daten, liste, Bestandsspalten);
}

bool brauchtFilter(const DataControl& daten)
{
    return daten.RecordSource() == Journalquelle || daten.RecordSource() == Bestandsquelle;
}

std::optional<qint64> aktuelleBewegung(const DataControl& daten)
{
    if (daten.AbsolutePosition() < 0) return {};
    const auto zeile = daten.Recordset().RowAt(daten.AbsolutePosition());
    if (!zeile) return {};
    const auto& felder = daten.Recordset().Fields();
    for (std::size_t i = 0; i < felder.size(); ++i) {
        if (felder[i].name.compare(u"ID", Qt::CaseInsensitive) == 0) return (*zeile)[i].toLong();
    }
    return {};
}

void sucheBewegung(DataControl& daten, std::optional<qint64> ID)
{
    if (ID) daten.FindFirst(u"ID = "_s + QString::number(*ID));
}

void filtereJournal(DataControl& daten, DataGrid& liste, const QString& eingrenzung)
{
    const auto id = aktuelleBewegung(daten);
    const QString alt = daten.RecordSource();
    oeffne(daten, liste, SQLVorWhere(alt) + eingrenzung + SQLAbOrder(alt), Journalquelle);
    sucheBewegung(daten, id);
}

void filtereBestandsliste(DataControl& daten, DataGrid& liste, const QString& eingrenzung,
                          const Bestandsansicht& ansicht)
{
    liste.Columns(u"LagerortKurzKu").setVisible(!ansicht.inSumme);
    oeffne(daten, liste, bestandsquelle(eingrenzung, ansicht, SQLAbOrder(daten.RecordSource())), Bestandsquelle);
}

void sortiereJournal(DataControl& daten, DataGrid& liste, int spalte)
{
    const auto id = aktuelleBewegung(daten);
    const QString feld = spalte < 0 ? QString() : liste.Columns(spalte).DataField();
    const QString ausdruck = ersatz(Journalersatz, feld);
    const QString zweitesFeld = ausdruck.isEmpty() ? u"Datum"_s : QString();
    sortiere(daten, liste, spalte, {.ausdruck = ausdruck, .zweitesFeld = zweitesFeld}, Journalquelle);
    sucheBewegung(daten, id);
}

void sortiereBestandsliste(DataControl& daten, DataGrid& liste, int spalte)
{
    const QString feld = spalte < 0 ? QString() : liste.Columns(spalte).DataField();
    sortiere(daten, liste, spalte, {.ausdruck = ersatz(Bestandsersatz, feld)}, Bestandsquelle);
}
