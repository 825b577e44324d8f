#pragma once

#include "core/farm/stammdaten/Stammliste.h"
#include "platform/jet/Database.h"

#include <QStringList>

/// The master data of a file of their own, which may be several tables of the database: of articles those
/// of all their kinds, which a column of its own tells.
struct Stammtabelle {
    QString name; ///< Of the file: "Artikel".
    Dateiart art;
    QString teiltitel;          ///< "Artikelart"; empty: it is one table.
    QStringList teilnamen = {}; ///< What stands there, for each of the tables.
    std::vector<Stammliste> teile;

    QStringList titel() const; ///< Of all columns; that of the block is the last one.
};

/// All of them.
const std::vector<Stammtabelle>& stammtabellen();

/// The one whose columns the titles are, by the engine's comparison. \throws jet::Error InvalidArgument
/// that tells which titles there are.
const Stammtabelle& stammtabelleMit(const QStringList& titel);
/// By its name in any case. \throws jet::Error InvalidArgument.
const Stammtabelle& stammtabelleNamens(const QString& name);

inline const QString Sperrtitel = QStringLiteral("Gesperrt");

/// The rows of a table, their values under its titles.
std::vector<std::vector<jet::Value>> stammwerte(const Stammtabelle& tabelle, jet::Database& datei);
/// A value as it stands in a cell: German numbers and days, "Ja" and "Nein"; NULL is empty.
QString zelltext(const jet::Value& wert);
