#pragma once

#include "platform/jet/Database.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A stock at the end of a year and how it came about. Quantities are in `Einheit`, to 4 decimals.
struct Jahreszeile {
    QString Artikelart, Artikel, LagerortKurzKu;
    QString Einheit;                   ///< Empty: booked in none, or in more than one.
    std::vector<double> jeBuchungsart; ///< In the order of jahresarten(); issues are negative.
    double Endbestand = 0;             ///< All of them together.
    /// Of one unit, to 4 decimals: what receipts have cost, weighed by their quantities. No value where none
    /// had a price, or where the quantities do not add up.
    std::optional<double> Preis;

    /// In the currency of the prices, to 2 decimals, half away from zero as spreadsheets round.
    std::optional<double> Wert() const;
};

/// The kinds of bookings that have a column of their own, the last one for all the others.
const QStringList& jahresarten();

/// The value of all lines that have one, and how many have none.
struct Jahressumme {
    double Wert = 0;
    int ohnePreis = 0;
};
Jahressumme summe(const std::vector<Jahreszeile>& zeilen);

/// A line a kind of article, article and place, in this order, of the rows up to 31 December. Rows without a
/// day are in no stock and not here. \throws jet::Error Overflow among others.
std::vector<Jahreszeile> jahresliste(jet::Database& journal, int jahr);
