#include "tests/support/Zeile.h"

#include <QLocale>
#include <QStringList>

#include <cmath>
#include <ostream>
#include <stdexcept>

using namespace Qt::StringLiterals;

bool Zeile::operator==(const Zeile& andere) const
{
    return tag == andere.tag && ort == andere.ort && artikel == andere.artikel && buchungsart == andere.buchungsart &&
           std::abs(menge - andere.menge) <= 1e-12 * std::abs(menge);
}

std::ostream& operator<<(std::ostream& ziel, const Zeile& zeile)
{
    const QString menge = QLocale(QLocale::German).toString(zeile.menge, 'f', QLocale::FloatingPointShortest);
    return ziel
           << QStringList{zeile.tag, zeile.ort, zeile.artikel, menge, zeile.buchungsart}.join(u" | "_s).toStdString();
}

std::vector<Zeile> zeilen(const char* text)
{
    std::vector<Zeile> alle;
    for (const QString& notiz : QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList teile = notiz.split(u" | "_s);
        if (teile.size() != 5) throw std::invalid_argument("no journal row: " + notiz.toStdString());
        alle.push_back({teile[0].trimmed(), teile[1], teile[2], QLocale(QLocale::German).toDouble(teile[3]), teile[4]});
    }
    return alle;
}
