#pragma once

#include "core/Ruecknahme.h"
#include "overview/Ansichten.h"
#include "platform/jet/Transaction.h"
#include "platform/system/Messages.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class Cancel;
class QPushButton;

/// Deleting of bookings, by button or by the Del key, both through the grid: which rows may go, the question,
/// and the other row of a transfer, which goes unasked and in the same commit. Of several rows each is asked
/// about, until "Abbrechen".
class Loeschung : public QObject {
    Q_OBJECT

public:
    /// `danach` is called once when all that was to be deleted is gone, or was left: the views show something
    /// else now, the booking behind the last one that went, or the one that was left, first of all.
    Loeschung(QPushButton& Command4, DataControl& Journaldaten, DataGrid& Journalliste,
              std::function<void(const Wiederfinden&)> danach, QObject* bildschirm);

private:
    void Command4_Click();
    void Journalliste_BeforeDelete(Cancel& cancel, bool& prompt);
    void Journalliste_AfterDelete();
    void Journalliste_DeletesEnded();
    Wiederfinden aktuelle() const;
    bool darfGehen();
    sys::Answer frage(const QString& text, int einzeln, int inReihe);
    void loeschePaar(qint64 ID);
    void loeschePartner(qint64 ID);

    DataControl& m_journal;
    DataGrid& m_liste;
    const std::function<void(const Wiederfinden&)> m_danach;
    std::unique_ptr<jet::Transaction> m_paar;   // from the last question about a transfer to its second row
    std::optional<Aufzeichnung> m_aufzeichnung; // of the row that was asked about, and its partner
    Wiederfinden m_gesucht;
    bool m_geloescht = false; // since the views were read
};
