#include "overview/Blattmodell.h"

#include "platform/jet/NumberFormat.h"

void Blattmodell::setze(const SheetRows& blatt)
{
    beginResetModel();
    m_spalten = blatt.columns;
    m_zeilen = blatt.read(0, static_cast<int>(blatt.count));
    endResetModel();
}

int Blattmodell::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_zeilen.size());
}

int Blattmodell::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_spalten.size());
}

QVariant Blattmodell::headerData(int abschnitt, Qt::Orientation richtung, int rolle) const
{
    if (richtung != Qt::Horizontal || rolle != Qt::DisplayRole) return {};
    return m_spalten[static_cast<std::size_t>(abschnitt)].caption;
}

QVariant Blattmodell::data(const QModelIndex& zelle, int rolle) const
{
    const SheetColumn& spalte = m_spalten[static_cast<std::size_t>(zelle.column())];
    if (rolle == Qt::TextAlignmentRole) return int(spalte.alignment | Qt::AlignVCenter);
    if (rolle != Qt::DisplayRole) return {};
    const jet::Value& wert =
        m_zeilen[static_cast<std::size_t>(zelle.row())][static_cast<std::size_t>(zelle.column())];
    if (wert.isNull()) return {};
    if (spalte.numberFormat.isEmpty() || !jet::isNumber(wert.type())) return wert.toText();
    return jet::formatted(wert.toDouble(), spalte.numberFormat);
}
