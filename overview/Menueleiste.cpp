#include "overview/Menueleiste.h"

#include "ui_LagerbestandNeu.h"

#include "overview/Hilfemenue.h"
#include "overview/Sortiermenue.h"

#include <QMenuBar>

using namespace Qt::StringLiterals;

void richteMenueleisteEin(Ui::LagerbestandNeu& ui, QDialog& bildschirm, std::function<DataGrid&()> liste,
                          const QList<QAction*>& weitere)
{
    auto* const leiste = new QMenuBar(&bildschirm);
    QMenu* const einstellungen = leiste->addMenu(u"E&instellungen"_s);
    einstellungen->setObjectName(u"M_Einstellungen"_s);
    einstellungen->addAction(ui.M_Vorjahr);
    QMenu* const extras = leiste->addMenu(u"E&xtras"_s);
    extras->addAction(ui.M_PflanzschPrufen);
    extras->addActions(weitere);
    extras->addMenu(new Sortiermenue(std::move(liste), &bildschirm));
    ergaenzeHilfemenue(*leiste, *ui.M_Hilfe);
    bildschirm.layout()->setMenuBar(leiste);
}
