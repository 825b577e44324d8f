#pragma once

#include <QMenu>

class DataGrid;
class QPushButton;

/// What can be done with the journal's current row, at the row itself, and further actions of the menu bar.
class Journalmenue : public QMenu {
    Q_OBJECT

public:
    Journalmenue(DataGrid& Journalliste, QPushButton& aendern, QPushButton& loeschen,
                 const QList<QAction*>& weitere, QWidget* parent);
};
