#include "core/farm/pruefung/Bestaende.h"

#include "core/farm/Buchungsarten.h"
#include "platform/jet/Conversion.h"
#include "platform/jet/NumberFormat.h"

#include <QDate>

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using Paar = std::pair<int, int>;

constexpr double Staub =
    0.00005; // what sums in another order may differ by; quantities are kept to 4 decimals

bool gleich(double links, double rechts)
{
    return std::abs(links - rechts) < std::max(Staub, 1e-9 * std::max(std::abs(links), std::abs(rechts)));
}

QString mengentext(double menge)
{
    return jet::formatted(menge, u"##,##0.00##");
}

QString paartext(const Textnummern& texte, Paar paar)
{
    return u"'"_s + texte.text(paar.first) + u"' in '"_s + texte.text(paar.second) + u"'"_s;
}

/// A pair of one journal in the numbers of another; none where that one has never met its names.
std::optional<Paar> paarIn(const Textnummern& ziel, const Textnummern& texte, Paar paar)
{
    const auto artikel = ziel.bekannt(texte.text(paar.first));
    const auto ort = ziel.bekannt(texte.text(paar.second));
    if (!artikel || !ort) return {};
    return Paar(*artikel, *ort);
}

void nenneFehlende(const Journalzeilen& journal, const Jahresschluss& vorjahr,
                   const std::set<Paar>& gefundene, const QString& abhilfe, Befunde& befunde)
{
    for (const auto& [paar, bestand] : vorjahr.bestaende) {
        if (std::abs(bestand) < Staub || !(std::isfinite(bestand))) continue;
        if (const auto hier = paarIn(journal.texte, vorjahr.texte, paar); hier && gefundene.contains(*hier))
            continue;
        if ((vorjahr.texte.text(paar.first) + vorjahr.texte.text(paar.second)).contains(u'\''))
            continue; // is told by name
        befunde.nenne(
            Befundart::Anfangsbestand,
            u"Der Anfangsbestand von %1 fehlt; %2 endete mit %3."_s.arg(paartext(vorjahr.texte, paar))
                .arg(vorjahr.jahr)
                .arg(mengentext(bestand)),
            abhilfe);
    }
}

} // namespace

Jahresschluss jahresschluss(const Journalzeilen& journal, int jahr)
{
    Jahresschluss schluss{jahr, journal.texte, {}};
    const double letzterTag = jet::dayNumber(QDateTime(QDate(jahr, 12, 31), QTime(0, 0), Qt::UTC));
    for (const Journalzeile& zeile : journal.zeilen) {
        if (zeile.artikel == 0 || zeile.ort == 0) continue;
        double& bestand = schluss.bestaende[{zeile.artikel, zeile.ort}];
        if (zeile.tag && *zeile.tag <= letzterTag) bestand += zeile.menge;
    }
    return schluss;
}

void pruefeAnfangsbestaende(const Journalzeilen& journal, const Jahresschluss& vorjahr, Befunde& befunde)
{
    const QString abhilfe =
        u"das Jahr noch einmal wählen oder 'zablager uebertrag --ab %1'"_s.arg(vorjahr.jahr);
    const auto anfang = journal.texte.bekannt(buchungsart::Anfangsbestand.toString());
    std::set<Paar> gefundene;
    for (const Journalzeile& zeile : journal.zeilen) {
        if (zeile.buchungsart != anfang || zeile.artikel == 0 || zeile.ort == 0) continue;
        const Paar paar{zeile.artikel, zeile.ort};
        const auto vorher = paarIn(vorjahr.texte, journal.texte, paar);
        const auto bestand = vorher ? vorjahr.bestaende.find(*vorher) : vorjahr.bestaende.end();
        const bool istErste = gefundene.insert(paar).second;
        if (!istErste || bestand == vorjahr.bestaende.end()) {
            if (zeile.menge != 0)
                befunde.nenne(Befundart::FremderAnfangsbestand,
                              (istErste ? u"Den Anfangsbestand von %1, %2, kennt das Vorjahr nicht."_s
                                        : u"Von %1 gibt es noch einen Anfangsbestand, %2."_s)
                                  .arg(paartext(journal.texte, paar), mengentext(zeile.menge)),
                              u"löschen, wenn ihn niemand von Hand gebucht hat"_s, zeile.ID);
        } else if (!gleich(zeile.menge, bestand->second)) {
            befunde.nenne(Befundart::Anfangsbestand,
                          u"Der Anfangsbestand von %1 ist %2; %3 endete mit %4."_s
                              .arg(paartext(journal.texte, paar), mengentext(zeile.menge))
                              .arg(vorjahr.jahr)
                              .arg(mengentext(bestand->second)),
                          abhilfe, zeile.ID);
        }
    }
    nenneFehlende(journal, vorjahr, gefundene, abhilfe, befunde);
}

namespace {

/// A movement, in the order of pairs and days.
struct Bewegung {
    Paar paar;
    double tag;
    double menge;
    qint64 ID;
    bool operator<(const Bewegung& rechts) const
    {
        return std::tie(paar, tag) < std::tie(rechts.paar, rechts.tag);
    }
};

std::vector<Bewegung> bewegungen(const Journalzeilen& journal)
{
    std::vector<Bewegung> alle;
    alle.reserve(journal.zeilen.size());
    for (const Journalzeile& zeile : journal.zeilen)
        if (zeile.tag)
            alle.push_back({{zeile.artikel, zeile.ort}, std::floor(*zeile.tag), zeile.menge, zeile.ID});
    std::ranges::stable_sort(alle, {}, [](const Bewegung& b) { return std::tie(b.paar, b.tag); });
    return alle;
}

void pruefeVerlauf(std::span<const Bewegung> eines, const Textnummern& texte, Befunde& befunde)
{
    double bestand = 0;
    double tiefster = 0;
    std::optional<Bewegung> erste;
    for (std::size_t i = 0; i < eines.size(); ++i) {
        bestand += eines[i].menge;
        const bool tagesende = i + 1 == eines.size() || eines[i + 1].tag != eines[i].tag;
        if (!tagesende || bestand > -Staub) continue;
        if (!erste) erste = eines[i];
        tiefster = std::min(tiefster, bestand);
    }
    if (!erste) return;
    befunde.nenne(Befundart::NegativerBestand,
                  u"Der Bestand von %1 war zum ersten Mal am %2 negativ und am tiefsten bei %3."_s.arg(
                      paartext(texte, erste->paar), jet::dateText(jet::fromDayNumber(erste->tag)),
                      mengentext(tiefster)),
                  {}, erste->ID);
}

void pruefeEinheiten(const Journalzeilen& journal, Befunde& befunde)
{
    std::map<Paar, const Journalzeile*> erste;
    std::set<Paar> genannte;
    for (const Journalzeile& zeile : journal.zeilen) {
        if (zeile.einheit == 0) continue;
        const Paar paar{zeile.artikel, zeile.ort};
        const auto [andere, neu] = erste.try_emplace(paar, &zeile);
        if (neu || andere->second->einheit == zeile.einheit || !genannte.insert(paar).second) continue;
        befunde.nenne(Befundart::ZweiEinheiten,
                      u"Von %1 sind Mengen in '%2' und in '%3' gebucht; ihre Summe sagt nichts."_s.arg(
                          paartext(journal.texte, paar), journal.texte.text(andere->second->einheit),
                          journal.texte.text(zeile.einheit)),
                      u"in den Buchungen die Einheit berichtigen"_s, zeile.ID);
    }
}

} // namespace

void pruefePaare(const Journalzeilen& journal, Befunde& befunde)
{
    pruefeEinheiten(journal, befunde);
    const auto alle = bewegungen(journal);
    for (auto anfang = alle.begin(); anfang != alle.end();) {
        const auto ende =
            std::find_if(anfang, alle.end(), [&](const Bewegung& b) { return b.paar != anfang->paar; });
        pruefeVerlauf({anfang, ende}, journal.texte, befunde);
        anfang = ende;
    }
}
