#pragma once

#include <QList>

#include <functional>

class DataGrid;
class QAction;
class QDialog;
namespace Ui {
class LagerbestandNeu;
}

/// The menus of the main screen. `liste` tells the list on view whenever one of them opens; `weitere` stand
/// below "Extras".
void richteMenueleisteEin(Ui::LagerbestandNeu& ui, QDialog& bildschirm, std::function<DataGrid&()> liste,
                          const QList<QAction*>& weitere);
