#include "overview/Journalmenue.h"

#include "overview/Sortiermenue.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/Wiring.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

Journalmenue::Journalmenue(DataGrid& Journalliste, QPushButton& aendern, QPushButton& loeschen,
                           const QList<QAction*>& weitere, QWidget* parent)
    : QMenu(parent)
{
    const auto biete = [this](const QString& text, Taste taste) {
        return addAction(text + u'\t' + tastenname(taste));
    };
    QAction* const aendere = biete(aendern.text(), Taste::Aendern);
    QAction* const loesche = biete(loeschen.text(), Taste::Loeschen);
    QAction* const kopiere = biete(u"&Kopieren"_s, Taste::Kopieren);
    addActions(weitere);
    addMenu(new Sortiermenue([&Journalliste]() -> DataGrid& { return Journalliste; }, this));
    setObjectName(u"M_Journal"_s);
    verdrahte(aendere, &QAction::triggered, this, [&aendern] { aendern.click(); });
    verdrahte(loesche, &QAction::triggered, this, [&loeschen] { loeschen.click(); });
    verdrahte(kopiere, &QAction::triggered, this, [&Journalliste] { Journalliste.Copy(); });
    Journalliste.setContextMenuPolicy(Qt::CustomContextMenu);
    verdrahte(&Journalliste, &QWidget::customContextMenuRequested, this,
              [this, &Journalliste, &aendern, &loeschen, aendere, loesche, kopiere](const QPoint& stelle) {
                  aendere->setEnabled(aendern.isEnabled());
                  loesche->setEnabled(loeschen.isEnabled());
                  kopiere->setEnabled(Journalliste.currentIndex().isValid());
                  popup(Journalliste.viewport()->mapToGlobal(stelle)); // by the menu key at the current row
              });
}
