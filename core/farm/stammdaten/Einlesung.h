#pragma once

#include "core/farm/stammdaten/Csv.h"
#include "core/farm/stammdaten/Stammtabelle.h"

/// Why a line stays out.
struct Ablehnung {
    int zeile;      ///< Of the file.
    QString spalte; ///< Its title; empty: it is about the whole line.
    QString grund;
};

struct Einleseergebnis {
    int neue = 0, geaenderte = 0, gleiche = 0;
    std::vector<Ablehnung> abgelehnte;
    std::optional<Zahlform> zahlen; ///< Of the prices, if there are any.
    QStringList warnungen;          ///< Of new names that lists will stumble over.
};

/// Merges the lines into a table of the master data: by name or short code rows are found and changed, or
/// added where there are none; none is deleted, and a column that the file lacks stays as it is. Writes
/// what is not refused: whoever wants all or nothing begins a transaction before. \throws jet::Error for
/// titles that are none of the table's, and as rows are written.
Einleseergebnis liesEin(const Csv& csv, const Stammtabelle& tabelle, jet::Database& datei);
