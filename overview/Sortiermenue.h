#pragma once

#include <QMenu>

#include <functional>

class DataGrid;

/// "Sortieren nach": the headers of the list on view, for those who work without a mouse.
class Sortiermenue : public QMenu {
    Q_OBJECT

public:
    /// `liste` tells the list on view whenever the menu opens.
    Sortiermenue(std::function<DataGrid&()> liste, QWidget* parent);

private:
    void bieteSpaltenAn();

    std::function<DataGrid&()> m_liste;
};
