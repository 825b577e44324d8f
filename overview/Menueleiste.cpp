#include "overview/Menueleiste.h"

#include "ui_LagerbestandNeu.h"

#include "overview/Hilfemenue.h"
#include "overview/Sortiermenue.h"

#include <QMenuBar>

using namespace Qt::StringLiterals;

void richteMenueleisteEin(Ui::LagerbestandNeu& ui, QDialog& bildschirm, const QList<QAction*>& weitere)
{
    const auto gezeigteListe = [&ui]() -> DataGrid& {
        return ui.SSTab1->currentWidget() == ui.TabJournal ? *ui.Journalliste : *ui.BestandListe;
    };
    auto* const leiste = new QMenuBar(&bildschirm);
    QMenu* const einstellungen = leiste->addMenu(u"E&instellungen"_s);
    einstellungen->setObjectName(u"M_Einstellungen"_s);
    einstellungen->addAction(ui.M_Vorjahr);
    QMenu* const extras = leiste->addMenu(u"E&xtras"_s);
    extras->addAction(ui.M_PflanzschPrufen);
    extras->addActions(weitere);
    extras->addMenu(new Sortiermenue(gezeigteListe, &bildschirm));
    ergaenzeHilfemenue(*leiste, *ui.M_Hilfe);
    bildschirm.layout()->setMenuBar(leiste);
}
