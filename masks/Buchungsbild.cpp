#include "masks/Buchungsbild.h"

#include <algorithm>
#include <iterator>

namespace {

// clang-format off
constexpr Buchungsbild Bilder[] = {
    {u"Zukauf", u"Zukaufsmenge", u"Wert d. Zukaufs:", true, true, false, u""},
    {u"Produktion", u"Produzierte Menge", u"Wert d. Zukaufs:", false, true, false,
     u"Erfassen Sie nur Mengen, die im Schollwart nicht als Ernte erfassbar sind"},
    {u"Anfangsbestand", u"Vorhanden Menge", u"Wert d. Zukaufs:", false, false, false, // sic
     u"Die Erfassung eines Anfangsbestandes ist nur im Startjahr sinnvoll, weil die Bestände von Jahr zu Jahr"
     u" weitergeschrieben werden."},
    {u"Schwund", u"Schwundmenge", u"Wert d. Zukaufs:", false, true, true,
     u"Tragen Sie eine Mehrmenge mit einem negativen Vorzeichen ein, einen Schwund ohne Vorzeichen."},
    {u"Entsorgung", u"Entsorgte Menge", u"Wert d. Zukaufs:", false, true, true, u"Tragen Sie die entsorgte Menge ein."},
    {u"Eigenverbrauch", u"Verbrauchte Menge", u"Wert d. Zukaufs:", false, true, true,
     u"Tragen Sie die Menge ein, die verbraucht wirden ist."}, // sic
    {u"Verkauf", u"Verkaufte Menge", u"Wert des Verkaufes", true, true, true, u""},
};
// clang-format on

} // namespace

const Buchungsbild& buchungsbildZu(QStringView Buchungsart)
{
    const auto* const gefunden = std::find_if(std::begin(Bilder), std::end(Bilder), [&](const Buchungsbild& bild) {
        return bild.Buchungsart == Buchungsart;
    });
    return gefunden == std::end(Bilder) ? Bilder[0] : *gefunden;
}
