#pragma once

#include "core/farm/Artikelarten.h"
#include "core/farm/Dateien.h"
#include "platform/jet/Value.h"

#include <QString>

#include <vector>

/// A table of the master data as its window shows it.
struct Stammliste {
    struct Spalte {
        QString titel;
        QStringView feld;
    };
    struct Vorgabe {
        QStringView feld;
        jet::Value wert;
    };

    QString was; ///< What a row is: "Artikel".
    Dateiart art = Dateiart::Grundstamm;
    QString tabelle;
    QString auswahl; ///< What follows the table in the statement: which rows, in which order.
    std::vector<Spalte> spalten;
    std::vector<QStringView> namen; ///< The first of these fields that is not empty is what journals know.
    QStringView journalspalte;      ///< Where they have it.
    QStringView sperre;             ///< The truth value that keeps masks from offering a row,
    bool gesperrt = true;           ///< and which one it is.
    std::vector<Vorgabe> vorgaben = {}; ///< Of a new row.
};

Stammliste lagerorte();
Stammliste artikel(const Artikelart& art);
Stammliste geschaeftspartner();
