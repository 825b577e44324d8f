#include "core/farm/uebernahme/Tabellenplan.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool gleich(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// Evaluations and prints add columns that are called so to the journal.
bool istVergeben(Dateiart art, QStringView spalte)
{
    constexpr QStringView Vergeben[] = {u"Gruppe", u"Giftigkeit", u"Abgang", u"Zugang"};
    return art == Dateiart::Lager &&
           std::ranges::any_of(Vergeben, [&](QStringView name) { return gleich(name, spalte); });
}

Tabellenplan::Spalte planFuer(const oldfile::Column& alt, const jet::TableDef& hier, Dateiart art)
{
    const auto bekannt =
        std::ranges::find_if(hier.fields, [&](const auto& feld) { return gleich(feld.name, alt.name); });
    if (bekannt != hier.fields.end()) return {*bekannt, false, {}};
    if (istVergeben(art, alt.name))
        return {{}, true, u"eine Spalte dieses Namens fügen Auswertungen selbst an"_s};
    if (!hatGegenstueck(alt.type)) return {{}, true, u"Objekte und Binärdaten werden nicht übernommen"_s};
    const bool text = alt.type == oldfile::Type::Text;
    return {{alt.name, text ? jet::Type::Text : jet::Type::Memo, text ? alt.size : 0}, true, {}};
}

} // namespace

int Tabellenplan::stelle(QStringView feld) const
{
    const auto spalte = std::ranges::find_if(
        spalten, [&](const Spalte& eine) { return eine.verlust.isEmpty() && gleich(eine.ziel.name, feld); });
    return spalte == spalten.end() ? -1 : static_cast<int>(spalte - spalten.begin());
}

std::vector<Tabellenplan> tabellenplaene(const oldfile::File::Contents& inhalt, Dateiart art,
                                         const std::vector<jet::TableDef>& hier, QStringList& fremd)
{
    std::vector<Tabellenplan> plaene;
    for (const oldfile::Table& alt : inhalt.tables) {
        const auto tabelle =
            std::ranges::find_if(hier, [&](const auto& eine) { return gleich(eine.name, alt.name); });
        if (tabelle == hier.end()) {
            fremd.append(alt.name);
            continue;
        }
        Tabellenplan plan{alt, tabelle->name, {}};
        for (const oldfile::Column& spalte : alt.columns)
            plan.spalten.push_back(planFuer(spalte, *tabelle, art));
        plaene.push_back(std::move(plan));
    }
    return plaene;
}
