#pragma once

#include "core/farm/uebernahme/Breiten.h"
#include "core/farm/uebernahme/Tabellenplan.h"

#include <QDate>
#include <QSet>

/// A value of an old file that does not come along.
struct Verlust {
    QString tabelle;
    qint64 zeile; ///< As it lies in the file, from 1.
    QString spalte;
    QString grund;
};

/// What is found in the tables of an old file before anything is written.
struct Bestandsaufnahme {
    std::vector<Verlust> verluste; ///< The first ones,
    qint64 verluste_insgesamt = 0; ///< of so many.
    QSet<int> jahre;               ///< Of the days in a journal.
    QSet<QString> artikel, namen;  ///< Names of articles; of places and partners.
};

/// Reads the tables once. `breiten` gets what their texts need. \throws jet::Error as oldfile::File::read().
Bestandsaufnahme nimmAuf(const oldfile::File& datei, Dateiart art, const std::vector<Tabellenplan>& plaene,
                         Breiten& breiten);
