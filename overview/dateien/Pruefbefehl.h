#pragma once

#include <QAction>

class Buchungssprung;

/// "Dateien prüfen ..." in the menu: what is found leads to its booking in the journal.
class Pruefbefehl : public QAction {
    Q_OBJECT

public:
    Pruefbefehl(const Buchungssprung& sprung, QWidget* bildschirm);
};
