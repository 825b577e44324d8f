#pragma once

#include "platform/jet/Database.h"

#include <QDate>
#include <QString>

#include <vector>

/// One made-up movement.
struct Musterzeile {
    QDate tag;
    int paar = 0; ///< Article and place, from 0.
    double menge = 0;
};

struct Bestandsfrage {
    int paar = 0;
    QDate tag;
};

/// A year of made-up movements: the same rows in every run. Dates ascend as in a journal that is kept daily,
/// quantities have fractions, every pair of article and storage place occurs.
class Musterjournal {
public:
    Musterjournal(int jahr, int zeilen, int paare);

    static QString artikel(int paar);
    static QString artikelart(int paar);
    static QString lagerort(int paar);
    Musterzeile zeile(int nummer) const;
    /// Writes all rows with every column that masks fill.
    void schreibe(jet::Database& journal) const;

    /// Questions spread over pairs and days.
    std::vector<Bestandsfrage> fragen(int anzahl) const;
    /// The answers, added up from the rows themselves, in the order in which a journal adds them.
    std::vector<double> antworten(const std::vector<Bestandsfrage>& fragen) const;
    /// The sum of each pair over the year.
    std::vector<double> summen() const;

private:
    int m_jahr;
    int m_zeilen;
    int m_paare;
};
