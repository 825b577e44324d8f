#include "overview/Kurzelliste.h"

#include <algorithm>

namespace {

// clang-format off
constexpr Kurzel Liste[] = {
    {u"L", u"Lagerstand korrigieren", u"Korrektur",      Maske::Korrektur},
    {u"A", u"Anfangsbestand",         u"Anfangsbestand", Maske::Buchung},
    {u"Z", u"Zukauf",                 u"Zukauf",         Maske::Buchung},
    {u"P", u"Produktion",             u"Produktion",     Maske::Buchung},
    {u"S", u"Schwund",                u"Schwund",        Maske::Buchung},
    {u"E", u"Eigenverbrauch",         u"Eigenverbrauch", Maske::Buchung},
    {u"G", u"Entsorgung",             u"Entsorgung",     Maske::Buchung},
    {u"V", u"Verkauf",                u"Verkauf",        Maske::Buchung},
    {u"U", u"Umbuchung",              u"Umbuchung",      Maske::Umbuchung},
};
// clang-format on

template <class Bedingung>
const Kurzel* gesucht(Bedingung bedingung)
{
    const auto* const gefunden = std::find_if(std::begin(Liste), std::end(Liste), bedingung);
    return gefunden == std::end(Liste) ? nullptr : gefunden;
}

} // namespace

std::span<const Kurzel> kurzelliste()
{
    return Liste;
}

const Kurzel* kurzelZu(QStringView kurzel)
{
    return gesucht([kurzel](const Kurzel& zeile) { return zeile.kurzel == kurzel; });
}

const Kurzel* kurzelZuBuchungsart(QStringView Buchungsart)
{
    return gesucht([Buchungsart](const Kurzel& zeile) { return zeile.Buchungsart == Buchungsart; });
}
