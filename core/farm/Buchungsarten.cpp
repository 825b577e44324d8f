#include "core/farm/Buchungsarten.h"

#include <algorithm>

namespace {

// clang-format off
constexpr Buchungsart Buchungen[] = {
    {u"L", u"Lagerstand korrigieren", buchungsart::Korrektur, false, Maske::Korrektur, {}},
    {u"A", u"Anfangsbestand", buchungsart::Anfangsbestand, false, Maske::Buchung,
     {u"Vorhanden Menge", u"Wert d. Zukaufs:", false, false, // sic
      u"Die Erfassung eines Anfangsbestandes ist nur im Startjahr sinnvoll, weil die Bestände"
      u" von Jahr zu Jahr weitergeschrieben werden."}},
    {u"Z", u"Zukauf", buchungsart::Zukauf, false, Maske::Buchung,
     {u"Zukaufsmenge", u"Wert d. Zukaufs:", true, true, u""}},
    {u"P", u"Produktion", u"Produktion", false, Maske::Buchung,
     {u"Produzierte Menge", u"Wert d. Zukaufs:", false, true,
      u"Erfassen Sie nur Mengen, die im Schollwart nicht als Ernte erfassbar sind"}},
    {u"S", u"Schwund", u"Schwund", true, Maske::Buchung,
     {u"Schwundmenge", u"Wert d. Zukaufs:", false, true,
      u"Tragen Sie eine Mehrmenge mit einem negativen Vorzeichen ein, einen Schwund ohne Vorzeichen."}},
    {u"E", u"Eigenverbrauch", u"Eigenverbrauch", true, Maske::Buchung,
     {u"Verbrauchte Menge", u"Wert d. Zukaufs:", false, true,
      u"Tragen Sie die Menge ein, die verbraucht wirden ist."}}, // sic
    {u"G", u"Entsorgung", u"Entsorgung", true, Maske::Buchung,
     {u"Entsorgte Menge", u"Wert d. Zukaufs:", false, true, u"Tragen Sie die entsorgte Menge ein."}},
    {u"V", u"Verkauf", u"Verkauf", true, Maske::Buchung,
     {u"Verkaufte Menge", u"Wert des Verkaufes", true, true, u""}},
    {u"U", u"Umbuchung", buchungsart::Umbuchung, true, Maske::Umbuchung, {}},
};
// clang-format on

template <class Bedingung>
const Buchungsart* gesucht(Bedingung bedingung)
{
    const auto* const gefunden = std::find_if(std::begin(Buchungen), std::end(Buchungen), bedingung);
    return gefunden == std::end(Buchungen) ? nullptr : gefunden;
}

} // namespace

std::span<const Buchungsart> buchungsarten()
{
    return Buchungen;
}

const Buchungsart* buchungsartZuKurzel(QStringView kurzel)
{
    return gesucht([kurzel](const Buchungsart& art) { return art.kurzel == kurzel; });
}

const Buchungsart* buchungsartZu(QStringView name)
{
    return gesucht([name](const Buchungsart& art) { return art.name == name; });
}
