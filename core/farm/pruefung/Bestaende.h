#pragma once

#include "core/farm/pruefung/Befund.h"
#include "core/farm/pruefung/Journalzeilen.h"

#include <map>
#include <utility>

/// What a year leaves to the next one: of each pair of article and place the stock at its end.
struct Jahresschluss {
    int jahr = 0;
    Textnummern texte; ///< Of the pairs.
    std::map<std::pair<int, int>, double> bestaende;
};

/// The stocks at midnight of the last day, as the carry-forward reckons them: a booking on that day with a
/// time is in none.
Jahresschluss jahresschluss(const Journalzeilen& journal, int jahr);

/// Holds the opening rows of a year against what the year before left, as far as the carry-forward keeps
/// them: of each pair the first one.
void pruefeAnfangsbestaende(const Journalzeilen& journal, const Jahresschluss& vorjahr, Befunde& befunde);

/// Pairs whose stock was below zero at the end of a day, and those with more than one unit.
void pruefePaare(const Journalzeilen& journal, Befunde& befunde);
