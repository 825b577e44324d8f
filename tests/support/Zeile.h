#pragma once

#include <QString>

#include <iosfwd>
#include <vector>

/// One journal row as a user notes it: "01.12. | H1 | Weizen | -20 | Verkauf".
struct Zeile {
    QString tag; ///< "01.12."; with its year only when that is not the file's.
    QString ort;
    QString artikel;
    double menge = 0;
    QString buchungsart;

    /// Quantities are equal when they agree to 12 digits: sums of decimals carry dust, roundings do not pass for equal.
    bool operator==(const Zeile& andere) const;
};

std::ostream& operator<<(std::ostream& ziel, const Zeile& zeile);

/// Reads such rows, one a line; empty lines do not count. "NULL" is an article or place that is missing.
std::vector<Zeile> zeilen(const char* text);
