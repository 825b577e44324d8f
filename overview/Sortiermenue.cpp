#include "overview/Sortiermenue.h"

#include "platform/controls/DataGrid.h"
#include "platform/controls/Wiring.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

Sortiermenue::Sortiermenue(std::function<DataGrid&()> liste, QWidget* parent)
    : QMenu(u"&Sortieren nach"_s, parent), m_liste(std::move(liste))
{
    setObjectName(u"M_Sortieren"_s);
    verdrahte(this, &QMenu::aboutToShow, this, &Sortiermenue::bieteSpaltenAn);
}

void Sortiermenue::bieteSpaltenAn()
{
    clear();
    DataGrid& liste = m_liste();
    const QHeaderView& kopf = *liste.horizontalHeader();
    for (int spalte = 0; spalte < liste.ColumnCount(); ++spalte) {
        if (!liste.Columns(spalte).Visible()) continue;
        QAction* const eintrag = addAction(liste.Columns(spalte).Caption());
        eintrag->setCheckable(true);
        eintrag->setChecked(kopf.isSortIndicatorShown() && kopf.sortIndicatorSection() == spalte);
        verdrahte(eintrag, &QAction::triggered, this, [&liste, spalte] { Q_EMIT liste.HeadClick(spalte); });
    }
}
