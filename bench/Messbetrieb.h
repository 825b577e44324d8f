#pragma once

#include "bench/Musterjournal.h"
#include "host/Installation.h"

#include <QTemporaryDir>

/// A farm in a temporary directory with made-up journals of consecutive years. While it lives the product
/// finds it.
class Messbetrieb {
public:
    static constexpr int ErstesJahr = 2020;

    Messbetrieb(int zeilenJeJahr, int paare, int jahre = 1);
    ~Messbetrieb();
    Q_DISABLE_COPY_MOVE(Messbetrieb)

    /// Lets the product find a farm that another process of the run has made.
    static void melde(const Installation& ort);

    QString journaldatei(int jahr) const;
    QString stammdaten(int jahr) const;
    QString verzeichnis() const { return m_ort.verzeichnis(); }

private:
    QTemporaryDir m_ordner;
    Installation m_ort;
};
