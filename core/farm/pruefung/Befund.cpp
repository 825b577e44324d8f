#include "core/farm/pruefung/Befund.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int HoechstensJeArt = 20; // in a file: a year whose dates are all wrong is told by a few of them

} // namespace

void Befunde::nenne(Befundart art, const QString& text, const QString& abhilfe, std::optional<qint64> ID)
{
    if (++m_anzahl[art] <= HoechstensJeArt) m_alle.push_back({art, m_betrieb, m_jahr, ID, text, abhilfe});
}

std::vector<Befund> Befunde::nimm()
{
    for (const auto& [art, anzahl] : m_anzahl)
        if (anzahl > HoechstensJeArt)
            m_alle.push_back({art,
                              m_betrieb,
                              m_jahr,
                              {},
                              u"… und %1 weitere wie diese."_s.arg(anzahl - HoechstensJeArt),
                              {}});
    m_anzahl.clear();
    return std::exchange(m_alle, {});
}
