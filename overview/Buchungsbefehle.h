#pragma once

#include "core/farm/Buchungsarten.h"
#include "masks/Maskenfelder.h"
#include "overview/Ansichten.h"

#include <QDialog>
#include <QString>

#include <functional>
#include <memory>

class TextBox;

/// The short entry and the change of a booking: which mask opens for a letter or a row, and which rows may be
/// changed.
class Buchungsbefehle : public QObject {
    Q_OBJECT

public:
    struct Felder {
        TextBox& KurzEingabe;
        ComboBox& DrpBuchart;
        QPushButton& neu;
        QPushButton& aendern;
    };
    /// `danach` is called once after a mask has closed: the views may have to show something else, the newest
    /// booking first of all, or else what was current before.
    Buchungsbefehle(const Felder& felder, const Hauptansicht& haupt,
                    std::function<void(const Wiederfinden&)> danach, QWidget* bildschirm);

private:
    void fuelleBuchungsarten();
    void KurzEingabe_KeyUp();
    void DrpBuchart_Click();
    void beginne(); ///< A new booking, Command7(0).
    void aendere(); ///< The journal's current row, Command7(1).
    std::unique_ptr<QDialog> erzeuge(Maske maske) const;
    void zeige(Maske maske);

    const Felder m_felder;
    const Hauptansicht m_haupt;
    const std::function<void(const Wiederfinden&)> m_danach;
    QWidget* const m_bildschirm;
    bool m_oeffnet = false; ///< A code is being looked up, or its mask is open.
};
