#pragma once

#include "core/farm/verlauf/Jahresverlauf.h"

#include <QAbstractTableModel>

/// The picture in figures, a line a day that has bookings, for whoever does not see it.
class Tagesmodell : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setze(const std::vector<Jahreskurve>& jahre);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int abschnitt, Qt::Orientation richtung, int rolle) const override;
    QVariant data(const QModelIndex& zelle, int rolle) const override;

private:
    std::vector<Tagesstand> m_tage;
};
