#include "host/demo/Sortiment.h"

#include "host/demo/Tabelle.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Preisschwankung = 6; // percent

/// Mixes all bits of a number (the finishing step of the generator SplitMix64).
quint64 gemischt(quint64 zahl)
{
    zahl += 0x9e3779b97f4a7c15U;
    zahl = (zahl ^ (zahl >> 30)) * 0xbf58476d1ce4e5b9U;
    zahl = (zahl ^ (zahl >> 27)) * 0x94d049bb133111ebU;
    return zahl ^ (zahl >> 31);
}

} // namespace

Sortiment::Sortiment()
{
    for (const auto& zeile : tabelle(u"artikel"_s)) {
        m_waren.push_back({.artikelart = zeile[u"Artikelart"_s],
                           .name = zeile[u"Name"_s],
                           .einheit = zeile[u"Einheit"_s],
                           .preis = hundertstel(zeile[u"Preis"_s]),
                           .preisfaktor = zeile[u"Preisfaktor"_s],
                           .untergruppe = zeile[u"Untergruppe"_s],
                           .schritt = hundertstel(zeile[u"Schritt"_s]),
                           .gesperrt = istJa(zeile[u"Sperre"_s])});
    }
}

const Ware& Sortiment::ware(const QString& name) const
{
    const auto gefunden =
        std::find_if(m_waren.begin(), m_waren.end(), [&](const Ware& ware) { return ware.name == name; });
    Q_ASSERT(gefunden != m_waren.end());
    return *gefunden;
}

qint64 jahrespreis(const Ware& ware, int jahr)
{
    quint64 stelle = 0;
    for (const QChar zeichen : ware.name)
        stelle = gemischt(stelle + zeichen.unicode());
    return gestreut(ware.preis, Preisschwankung, 1, jahr, stelle);
}

qint64 gestreut(qint64 wert, int prozent, qint64 schritt, int jahr, quint64 stelle)
{
    const auto promille = qint64(gemischt(gemischt(quint64(jahr)) + stelle) % 2001) - 1000; // of the scatter
    const qint64 abweichung = wert * prozent * promille / 100'000;
    return qRound64(double(wert + abweichung) / double(schritt)) * schritt;
}
