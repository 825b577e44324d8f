#include "overview/verlauf/Tagesmodell.h"

#include "core/Datumstext.h"
#include "platform/jet/NumberFormat.h"

using namespace Qt::StringLiterals;

namespace {

const QString Titel[] = {u"Tag"_s, u"Zugang"_s, u"Abgang"_s, u"Bestand"_s};

QString menge(double wert)
{
    return jet::formatted(wert, u"##,##0.00##");
}

} // namespace

void Tagesmodell::setze(const std::vector<Jahreskurve>& jahre)
{
    beginResetModel();
    m_tage.clear();
    for (const Jahreskurve& jahr : jahre)
        m_tage.insert(m_tage.end(), jahr.tage.begin(), jahr.tage.end());
    endResetModel();
}

int Tagesmodell::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_tage.size());
}

int Tagesmodell::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(std::size(Titel));
}

QVariant Tagesmodell::headerData(int abschnitt, Qt::Orientation richtung, int rolle) const
{
    if (richtung != Qt::Horizontal || rolle != Qt::DisplayRole) return {};
    return Titel[abschnitt];
}

QVariant Tagesmodell::data(const QModelIndex& zelle, int rolle) const
{
    if (rolle == Qt::TextAlignmentRole && zelle.column() > 0) return int(Qt::AlignRight | Qt::AlignVCenter);
    if (rolle != Qt::DisplayRole) return {};
    const Tagesstand& tag = m_tage[static_cast<std::size_t>(zelle.row())];
    const QString werte[] = {datumText(tag.tag), tag.Zugang == 0 ? QString() : menge(tag.Zugang),
                             tag.Abgang == 0 ? QString() : menge(tag.Abgang), menge(tag.Bestand)};
    return werte[zelle.column()];
}
