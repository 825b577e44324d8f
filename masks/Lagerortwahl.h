#pragma once

#include "platform/controls/DataCombo.h"
#include "platform/controls/DataControl.h"

#include <QLabel>

#include <functional>

class ClickLabel;

/// The storage place of a mask, or of one of its sides: what is offered, and its name beside the code.
class Lagerortwahl : public QObject {
public:
    struct Felder {
        DataCombo& drpLagerort;
        ClickLabel& lblLagerort;
        QLabel& lblLagername;
        DataControl& Lagerauswahl;
    };
    /// `gewaehlt` is called when the user has chosen another place.
    Lagerortwahl(const Felder& felder, std::function<void()> gewaehlt, QObject* maske);

    QString Ort() const { return m_felder.drpLagerort.Text(); } ///< Short code.
    void setOrt(const QString& kurzel);

    /// Reads the places for the first time, without the check that belongs to opening the combo: the place of
    /// a row that is changed may be no longer offered.
    void oeffne();
    void zeigeName(); ///< Nothing for a code that is not listed.

private:
    void lade(); ///< A code that is not among the places is emptied.

    const Felder m_felder;
};
