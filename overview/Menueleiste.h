#pragma once

#include <QList>

class QAction;
class QDialog;
namespace Ui {
class LagerbestandNeu;
}

/// The menus of the main screen; `weitere` stand below "Extras".
void richteMenueleisteEin(Ui::LagerbestandNeu& ui, QDialog& bildschirm, const QList<QAction*>& weitere);
