#pragma once

#include "overview/Ansichten.h"

#include <QObject>

#include <functional>

class Cancel;
class DataControl;
class DataGrid;
class QPushButton;

/// Deleting of bookings, by button or by the Del key, both through the grid: which rows may go, the question, and the other
/// row of a transfer, which goes unasked.
class Loeschung : public QObject {
    Q_OBJECT

public:
    /// `danach` is called once after each booking that is gone, with its partner: the views show something else now, the
    /// booking behind it first of all.
    Loeschung(QPushButton& Command4, DataControl& Journaldaten, DataGrid& Journalliste,
              std::function<void(const Wiederfinden&)> danach, QObject* bildschirm);

private:
    void Command4_Click();
    void Journalliste_BeforeDelete(Cancel& cancel, bool& prompt);
    void Journalliste_AfterDelete();
    void loeschePartner(qint64 ID);

    DataControl& m_journal;
    DataGrid& m_liste;
    const std::function<void(const Wiederfinden&)> m_danach;
};
