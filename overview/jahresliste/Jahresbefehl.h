#pragma once

#include <QAction>

/// "Jahresliste ..." in the menu.
class Jahresbefehl : public QAction {
    Q_OBJECT

public:
    explicit Jahresbefehl(QWidget* bildschirm);
};
