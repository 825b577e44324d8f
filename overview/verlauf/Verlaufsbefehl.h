#pragma once

#include "masks/Maskenfelder.h"

#include <QAction>

#include <functional>

class Buchungssprung;

/// "Verlauf des Bestandes ..." in the menu and at the rows of both lists: of the current row's article at its
/// place, or at all of them where they are in sum.
class Verlaufsbefehl : public QAction {
    Q_OBJECT

public:
    /// `journalGezeigt` tells which of the lists is in front.
    Verlaufsbefehl(const Hauptansicht& haupt, std::function<bool()> journalGezeigt,
                   const Buchungssprung& sprung, QWidget* bildschirm);

private:
    void zeige() const;

    const Hauptansicht m_haupt;
    const std::function<bool()> m_journalGezeigt;
    const Buchungssprung& m_sprung;
    QWidget* m_bildschirm;
};
