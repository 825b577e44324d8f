#pragma once

#include "platform/family/GridExport.h"

#include <QObject>

class DataGrid;
class QPushButton;

/// Hands the two views to the user's spreadsheet program, as they are shown.
class Tabellenuebergabe : public QObject {
    Q_OBJECT

public:
    Tabellenuebergabe(QPushButton& ExcelButton, DataGrid& Journalliste, QPushButton& Command3,
                      DataGrid& BestandListe, QObject* bildschirm);

private:
    void uebergib(DataGrid& liste, const QString& titel);

    GridExport m_uebergabe;
};
