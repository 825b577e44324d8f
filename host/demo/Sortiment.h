#pragma once

#include <QString>

#include <vector>

/// One article of the demo farm.
struct Ware {
    QString artikelart, name, einheit;
    qint64 preis = 0;    ///< Cents for `preisfaktor` units, as the master data have it.
    QString preisfaktor; ///< "1" or "100".
    QString untergruppe;
    qint64 schritt = 0; ///< Hundredths of the unit: what is booked is a multiple of it.
    bool gesperrt = false;
};

/// All articles of the demo farm, in the order of their table.
class Sortiment {
public:
    Sortiment();
    const std::vector<Ware>& waren() const { return m_waren; }
    const Ware& ware(const QString& name) const; ///< The name must be in the table.

private:
    std::vector<Ware> m_waren;
};

/// What the article costs in that year: some percent above or below the master data.
qint64 jahrespreis(const Ware& ware, int jahr);

/// A value scattered by up to `prozent` percent and rounded to a multiple of `schritt`. The same year and
/// place give the same value on every machine, so a closed year of the demo farm never changes.
qint64 gestreut(qint64 wert, int prozent, qint64 schritt, int jahr, quint64 stelle);
