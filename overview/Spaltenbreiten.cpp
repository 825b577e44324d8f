#include "overview/Spaltenbreiten.h"

#include "platform/controls/DataGrid.h"

QString spaltenbreiten(const DataGrid& liste)
{
    QStringList zahlen;
    for (int i = 0; i < liste.ColumnCount(); ++i)
        zahlen.append(QString::number(liste.Columns(i).Width()));
    return zahlen.join(u',');
}

void stelleSpaltenbreiten(DataGrid& liste, const QString& breiten)
{
    const QStringList zahlen = breiten.split(u',');
    for (int i = 0; i < qMin(int(zahlen.size()), liste.ColumnCount()); ++i) {
        if (const int breite = zahlen[i].toInt(); breite > 0) liste.Columns(i).setWidth(breite);
    }
}
