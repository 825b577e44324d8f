#pragma once

#include "platform/controls/DateCombo.h"

#include <QPushButton>

#include <functional>

/// The day of a booking: only one of the open year can be typed or saved.
class Buchungstag : public QObject {
public:
    /// `weiter`: Enter presses the button "Heute" when it has come to it, and goes on.
    Buchungstag(DateCombo& Buchdatum, QPushButton& heute, std::function<void()> weiter, QObject* maske);

    QDate Tag() const { return m_Buchdatum.Date(); }
    void setTag(QDate tag) { m_Buchdatum.setDate(tag); }
    bool pruefe(); ///< Before a save, with the message and the focus when it is no day of the year.
    QWidget& feld() const { return m_Buchdatum; }

private:
    DateCombo& m_Buchdatum;
};
