#pragma once

#include "host/Installation.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// A real trader's movements, booked into year files and compared with stocks that another program computed from them.

/// What an article must stand at in one place and year.
struct Sollbestand {
    QString artikel; ///< In lower case: spellings that differ in case are one article.
    QString lagerort;
    int jahr = 0;
    double anfang = 0; ///< The closing stock of the year before.
    double schluss = 0;
    std::optional<double> mittelpreis; ///< Of the year's movements; to 6 decimals.
};

/// Reads a table of closing stocks: CSV with the columns article, place, year, opening, closing, mean_unit_price_gbp.
std::vector<Sollbestand> leseSollbestaende(const QByteArray& csv);

/// Books movements into the farm's year files, which are made as needed: CSV with the columns timestamp, article,
/// place, quantity, unit_price_gbp, in the order of time. The time of day is left out, since journals know days.
/// \returns how many.
int bucheBewegungen(const Installation& ort, const QString& betriebsnummer, const QByteArray& csv);

struct Abgleich {
    int fragen = 0;        ///< Stocks asked for by Get_Bestand.
    int anfangszeilen = 0; ///< Opening rows compared.
    QStringList abweichungen;
};

/// Carries the farm's stocks forward as a host does, asks for each stock on 31 December and compares it; then the
/// opening rows of each year file, all columns that the carry-forward sets. Opening rows that nobody expects, and pairs
/// of a year file that the table does not know, are differences too.
Abgleich gleicheAb(const QString& betriebsnummer, const std::vector<Sollbestand>& soll);
