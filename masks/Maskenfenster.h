#pragma once

#include "masks/Maskenfelder.h"

#include <QDialog>

#include <functional>
#include <optional>

class Maskenfuss;

/// The window of every entry mask: keys, size, buttons, and the way of a save.
class Maskenfenster : public QDialog {
    Q_OBJECT

public:
    void done(int result) override; ///< Remembers the size.

protected:
    Maskenfenster(const Hauptansicht& haupt, QWidget* parent);

    /// To be called by the mask when its own part is set up: keys, buttons, the size it had.
    void richteFensterEin(Maskenfuss& fuss);
    const Hauptansicht& haupt() const { return m_haupt; }
    DataControl& journaldaten() const { return m_haupt.Journaldaten; }
    bool aendert() const { return m_id != 0; }
    qint64 ID() const { return m_id; } ///< Of the row that is changed; 0: a new booking.

    /// Writes under the error report with the save buttons disabled. Whether it went to its end; if not, the mask stays as
    /// it was typed, and can be saved again.
    bool speichereUnterBericht(const std::function<void()>& merke, const std::function<void()>& schreibe);
    virtual void Command2_Click(int index) = 0; ///< Save; 1 also closes.

private:
    const Hauptansicht m_haupt;
    Maskenfuss* m_fuss = nullptr;
    qint64 m_id = 0;
};
