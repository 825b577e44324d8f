#pragma once

#include "core/farm/Artikelarten.h"
#include "core/farm/Dateien.h"
#include "platform/jet/Value.h"

#include <QString>
#include <QStringList>

#include <functional>
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
    QStringView journalspalte = {}; ///< Where they have it; empty: no journal knows the row.
    QStringView sperre = {}; ///< The truth value that keeps masks from offering a row, if there is one,
    bool gesperrt = true;    ///< and which one it is.
    std::vector<Vorgabe> vorgaben = {}; ///< Of a new row.
    bool alleNamen = false;             ///< All of `namen` together tell a row from others.

    /// What tells a row from others. \param text of a field of the row; NULL is empty.
    QStringList schluessel(const std::function<QString(QStringView feld)>& text) const;
};

Stammliste lagerorte();
Stammliste artikel(const Artikelart& art);
Stammliste geschaeftspartner();
Stammliste registermittel();    ///< Plant-protection products of a year.
Stammliste registereintraege(); ///< Their official numbers of a year.
