#pragma once

#include "overview/Ansichten.h"

#include <QAction>

#include <functional>

/// "Letzte Buchung zurücknehmen", in the menu, in the journal's own menu and as a key in the journal.
class Ruecknahmebefehl : public QAction {
    Q_OBJECT

public:
    /// `danach` is called when a booking was taken back, with what is to be current then and the
    /// sentence that tells of it.
    Ruecknahmebefehl(DataControl& Journaldaten, DataGrid& Journalliste,
                     std::function<void(const Wiederfinden&, const QString& satz)> danach,
                     QWidget* bildschirm);

private:
    void nimmZurueck();

    DataControl& m_journal;
    const std::function<void(const Wiederfinden&, const QString&)> m_danach;
};
