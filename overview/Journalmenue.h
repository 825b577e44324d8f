#pragma once

#include <QMenu>

class DataGrid;
class QPushButton;

/// What can be done with the journal's current row, at the row itself.
class Journalmenue : public QMenu {
    Q_OBJECT

public:
    Journalmenue(DataGrid& Journalliste, QPushButton& aendern, QPushButton& loeschen, QAction& zuruecknehmen,
                 QWidget* parent);
};
