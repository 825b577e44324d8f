#pragma once

#include "bench/Bare.h"

#include <vector>

/// One line of the stock list.
struct Bestandszeile {
    QByteArray artikel, lagerort;
    double zugang = 0, abgang = 0, bestand = 0;
};

/// What the main screen's filtering asks of a year file, without a screen: the repair of units, the keys of
/// the journal sorted by day, the stock list with its places separate. The statements stay prepared.
class BareAnsichten {
public:
    explicit BareAnsichten(const QString& datei);

    void repariere();
    /// The days, first and last, as in "2024-12-31".
    std::vector<qint64> schluessel(const QByteArray& von, const QByteArray& bis);
    std::vector<Bestandszeile> bestandsliste(const QByteArray& von, const QByteArray& bis);

private:
    BareFile m_datei;
    BareStatement m_reparatur, m_schluessel, m_bestandsliste;
};
