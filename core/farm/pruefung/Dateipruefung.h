#pragma once

#include "core/farm/Dateien.h"
#include "core/farm/pruefung/Befund.h"

#include <QTemporaryDir>

/// Looks at a file without changing a byte of it: at a copy, since opening a file rolls back what a killed
/// program has left.
class Dateipruefung {
public:
    Dateipruefung(Dateiart art, const QString& datei, Befunde& befunde);

    /// The copy, brought up to date; null where it cannot be read.
    jet::Database* kopie() const { return m_kopie.get(); }

private:
    void nenneSchaeden(Dateiart art, const QString& name, Befunde& befunde);
    void nenneStand(Dateiart art, const QString& name, Befunde& befunde);

    QTemporaryDir m_ordner;
    std::unique_ptr<jet::Database> m_kopie;
};
