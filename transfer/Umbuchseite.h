#pragma once

#include "ui_Umbuchseite.h"

#include <QGroupBox>
#include <QHBoxLayout>

/// One side of a transfer: where, what, and the stock before and after.
class Umbuchseite : public QGroupBox, public Ui::Umbuchseite {
public:
    explicit Umbuchseite(QWidget* parent = nullptr);

    /// Sets the unit beside a figure that stands elsewhere.
    void setzeEinheitNeben(QWidget& feld, QHBoxLayout& zeile);
    void nenneZweite(); ///< Gives the controls the names of the receiving side.
    void setzeBestand(double bisher, double neu);
};
