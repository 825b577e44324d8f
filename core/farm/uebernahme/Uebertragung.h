#pragma once

#include "core/farm/uebernahme/Breiten.h"
#include "core/farm/uebernahme/Tabellenplan.h"

/// Fills the tables of a file, which are empty, with the rows of an old one: wide enough, with the columns
/// that only the old one has at their end. Writes in the caller's transaction. \throws jet::Error of
/// either side.
void uebertrage(const oldfile::File& alt, const std::vector<Tabellenplan>& plaene, const Breiten& breiten,
                Dateiart art, jet::Database& neu);

/// What a table holds, after a second reading of both sides.
struct Probe {
    QString tabelle;
    qint64 zeilen = 0;
    quint64 pruefzahl = 0;   ///< Over all cells of all rows, whatever their order.
    qsizetype bestaende = 0; ///< Of a journal: sums of quantities, one for each article and place.
    QString ersterTag, letzterTag;
    QString unterschied; ///< What differs; empty: nothing.
};

/// Compares what was carried over, table by table, without any step that has carried it. \throws jet::Error.
std::vector<Probe> gegenprobe(const oldfile::File& alt, const std::vector<Tabellenplan>& plaene, Dateiart art,
                              jet::Database& neu);
