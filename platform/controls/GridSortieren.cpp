#include "platform/controls/GridSortieren.h"

#include "platform/controls/DataControl.h"
#include "platform/controls/DataGrid.h"
#include "platform/system/Pointer.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

bool istFeld(const QString& feld, const QString& anderes)
{
    return feld.compare(anderes, Qt::CaseInsensitive) == 0;
}

/// Each key takes the direction, so that the text ends in what the next click asks for.
QString schluessel(const QString& feld, const Sortierung& sortierung, const QString& richtung)
{
    QString text = (sortierung.ausdruck.isEmpty() ? u"["_s + feld + u"]"_s : sortierung.ausdruck) + richtung;
    if (!sortierung.zweitesFeld.isEmpty() && !istFeld(feld, sortierung.zweitesFeld))
        text += u", ["_s + sortierung.zweitesFeld + u"]"_s + richtung;
    return text;
}

struct Anordnung {
    QString quelle;
    Qt::SortOrder richtung;
};

Anordnung angeordnet(const DataControl& data, const DataGrid& grid, int spalte, const Sortierung& sortierung)
{
    const QString quelle = data.RecordSource();
    const qsizetype order = quelle.indexOf(u"order"_s, 0, Qt::CaseInsensitive);
    const QString basis = order < 0 ? quelle : quelle.left(order);
    const bool markiert = grid.Columns(spalte).HeadForeColor() == QColor(Sortiermarke);
    const bool absteigend =
        markiert && order >= 0 && quelle.trimmed().endsWith(u"ASC"_s, Qt::CaseInsensitive);
    const QString richtung = absteigend ? u" DESC"_s : u" ASC"_s;
    return {basis + u" ORDER BY "_s + schluessel(grid.Columns(spalte).DataField(), sortierung, richtung),
            absteigend ? Qt::DescendingOrder : Qt::AscendingOrder};
}

void markiere(DataGrid& grid, int spalte, Qt::SortOrder richtung)
{
    grid.Columns(spalte).setHeadForeColor(QColor(Sortiermarke));
    grid.showSort(spalte, richtung);
}

} // namespace

void GridSortieren(DataControl& data, DataGrid& grid, int spalte, const Sortierung& sortierung)
{
    const sys::Hourglass hourglass;
    data.UpdateRecord();
    if (spalte < 0) return;
    const Anordnung neu = angeordnet(data, grid, spalte, sortierung);
    SortiermarkeLoschen(grid);
    data.setRecordSource(neu.quelle);

    // Not hidden, as that would take the focus away from it.
    grid.setUpdatesEnabled(false);
    const auto sichtbar = qScopeGuard([&grid] { grid.setUpdatesEnabled(true); });
    data.Refresh();
    markiere(grid, spalte, neu.richtung);
}

void GridVorsortieren(DataControl& data, DataGrid& grid, int spalte, const Sortierung& sortierung)
{
    const Anordnung neu = angeordnet(data, grid, spalte, sortierung);
    SortiermarkeLoschen(grid);
    data.setRecordSource(neu.quelle);
    markiere(grid, spalte, neu.richtung);
}

void SortiermarkeLoschen(DataGrid& grid)
{
    for (int i = 0; i < grid.ColumnCount(); ++i)
        grid.Columns(i).setHeadForeColor({});
    grid.showSort(-1, Qt::AscendingOrder);
}
