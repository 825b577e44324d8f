#pragma once

#include "platform/jet/Database.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// An article at a storage place. Two are the same when the engine's comparison says so of both names.
struct Paar {
    QString Artikel, LagerortKurzKu;
    bool operator<(const Paar& anderes) const;
};

/// What the journal says of a pair on the evening of a day, and what was counted there.
struct Zaehlzeile {
    Paar paar;
    QString Artikelart, Einheit; ///< Of the row that was written last.
    double Bestand = 0;          ///< In `Einheit`, to 4 decimals.
    std::optional<QDate> LetzteZaehlung;
    bool ZweiEinheiten = false;     ///< Its rows do not add up: it is not counted here.
    bool SpaetereBuchungen = false; ///< Rows of later days stand on the stock of this one.
    std::optional<double> Gezaehlt;

    /// What a count changes, to 4 decimals; no value where nothing was counted.
    std::optional<double> Differenz() const;
};

/// All pairs that have a row in the file, in German order. Bookings of the day count whatever their time.
/// \throws jet::Error Overflow among others.
std::vector<Zaehlzeile> zaehlliste(jet::Database& journal, QDate tag);
