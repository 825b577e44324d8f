#pragma once

#include "core/inventur/Zaehlliste.h"

#include <QTemporaryDir>

class QWidget;

namespace report {
class PrintControl;
}

/// "Zählliste drucken": the lines with an empty field for each, through a form that a farm can change.
class Zaehlpapier {
public:
    explicit Zaehlpapier(QWidget* fenster);

    /// \param mitBestand whoever counts sees what should lie there. \throws jet::Error, sys::FileError.
    void drucke(const std::vector<Zaehlzeile>& zeilen, QDate tag, bool mitBestand);

private:
    void baue(const QString& datei, const std::vector<Zaehlzeile>& zeilen) const;

    QTemporaryDir m_ordner;
    report::PrintControl* m_druck;
};
