#pragma once

#include "bench/Bare.h"

#include <QDate>

#include <map>
#include <memory>
#include <vector>

/// One line of the stock list.
struct Bestandszeile {
    QByteArray artikel, lagerort;
    double zugang = 0, abgang = 0, bestand = 0;
};

/// What both views are narrowed to; empty: all of it.
struct Ausschnitt {
    QDate von, bis;
    QByteArray artikel, lagerort;
};

/// What the main screen's filtering asks of a year file, without a screen, in the way that gives these
/// rows in this order fastest: the repair of units, the keys of the journal, the stock list. The
/// statements stay prepared.
class BareAnsichten {
public:
    explicit BareAnsichten(const QString& datei);

    void repariere();
    /// \param spalte "" for the day, or the column of the table that rows are sorted by before it.
    std::vector<qint64> schluessel(const Ausschnitt& aus, const QByteArray& spalte = {},
                                   bool absteigend = false);
    /// \param ordnung what the groups are sorted by, with `%m` for the quantity as the list adds it up.
    std::vector<Bestandszeile> bestandsliste(const Ausschnitt& aus, bool inSumme = false,
                                             const QByteArray& ordnung = "Artikel %C");

private:
    BareStatement& vorbereitet(QByteArray text, const Ausschnitt& aus);
    std::vector<qint64> sortiert(const Ausschnitt& aus, const QByteArray& spalte);

    BareFile m_datei;
    BareStatement m_reparatur;
    std::map<QByteArray, std::unique_ptr<BareStatement>> m_anweisungen;
    QByteArray m_von, m_bis, m_artikel, m_lagerort; // what is bound to them
};
