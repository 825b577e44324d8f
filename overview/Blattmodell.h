#pragma once

#include "platform/family/GridExport.h"

#include <QAbstractTableModel>

/// Rows of a sheet on the screen, to be read: what the window shows is what the spreadsheet gets.
class Blattmodell : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setze(const SheetRows& blatt);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int abschnitt, Qt::Orientation richtung, int rolle) const override;
    QVariant data(const QModelIndex& zelle, int rolle) const override;

private:
    std::vector<SheetColumn> m_spalten;
    std::vector<std::vector<jet::Value>> m_zeilen;
};
