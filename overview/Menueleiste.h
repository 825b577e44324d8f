#pragma once

#include <functional>

class DataGrid;
class QDialog;
namespace Ui {
class LagerbestandNeu;
}

/// The menus of the main screen. `liste` tells the list on view whenever one of them opens.
void richteMenueleisteEin(Ui::LagerbestandNeu& ui, QDialog& bildschirm, std::function<DataGrid&()> liste);
