#include "core/farm/uebernahme/Uebertragung.h"

#include "core/farm/Buchungsarten.h"
#include "platform/jet/Appender.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Columns that this program does not know, and the setting that only a year has which the program made new.
void ergaenzeSpalten(const Tabellenplan& plan, jet::Database& neu)
{
    const auto hier = neu.OpenRecordset(u"SELECT TOP 1 * FROM ["_s + plan.ziel + u']', jet::Kind::Snapshot);
    for (std::size_t i = 0; i < plan.spalten.size(); ++i)
        if (const auto& spalte = plan.spalten[i];
            spalte.verlust.isEmpty() && !hier->PlaceOf(spalte.ziel.name))
            neu.Execute(u"ALTER TABLE [%1] ADD COLUMN [%2] %3"_s.arg(plan.ziel, spalte.ziel.name,
                                                                     spaltentyp(plan.alt.columns[i])));
}

/// For each column of the old table its place in the new one; -1: it is left.
std::vector<int> ziele(const Tabellenplan& plan, const std::vector<jet::Field>& felder)
{
    std::vector<int> ziele;
    for (const auto& spalte : plan.spalten) {
        const auto feld = std::ranges::find(felder, spalte.ziel.name, &jet::Field::name);
        ziele.push_back(spalte.verlust.isEmpty() ? static_cast<int>(feld - felder.begin()) : -1);
    }
    return ziele;
}

void uebertrageZeilen(const oldfile::File& alt, const Tabellenplan& plan, jet::Database& neu)
{
    jet::Appender ziel(neu, plan.ziel);
    const std::vector<int> plaetze = ziele(plan, ziel.Fields());
    std::vector<jet::Value> zeile;
    alt.read(plan.alt, [&](const std::vector<oldfile::Cell>& zellen) {
        zeile.assign(ziel.Fields().size(), {});
        for (std::size_t i = 0; i < zellen.size(); ++i)
            if (plaetze[i] >= 0) {
                const auto platz = static_cast<std::size_t>(plaetze[i]);
                zeile[platz] = umgesetzt(zellen[i], ziel.Fields()[platz]).wert;
            }
        ziel.Add(zeile);
    });
}

/// A new booking must get no number that a transfer names as its other row: it would be taken for that,
/// and be deleted with it.
void setzeZaehler(jet::Database& journal)
{
    qint64 hoechste = 0;
    const auto partner =
        journal.OpenRecordset(u"SELECT Verfuttert_an FROM LAGERJOURNAL WHERE Buchungsart = '"_s +
                                  buchungsart::Umbuchung.toString() + u"'"_s,
                              jet::Kind::Snapshot);
    for (; !partner->Eof(); partner->MoveNext())
        hoechste = std::max(
            hoechste,
            qint64{(*partner)[qsizetype{0}].isNull() ? 0 : (*partner)[qsizetype{0}].toText().toInt()});
    const QString nummer = QString::number(hoechste);
    if (hoechste <= 0 ||
        !journal.OpenRecordset(u"SELECT TOP 1 ID FROM LAGERJOURNAL WHERE ID >= "_s + nummer)->Eof())
        return; // a living row has drawn it
    jet::Appender ziel(journal, u"LAGERJOURNAL"_s);
    std::vector<jet::Value> zeile(ziel.Fields().size());
    zeile.front() = hoechste;
    ziel.Add(zeile);
    journal.Execute(u"DELETE * FROM LAGERJOURNAL WHERE ID = "_s + nummer);
}

} // namespace

void uebertrage(const oldfile::File& alt, const std::vector<Tabellenplan>& plaene, const Breiten& breiten,
                Dateiart art, jet::Database& neu)
{
    for (const Tabellenplan& plan : plaene)
        ergaenzeSpalten(plan, neu);
    breiten.passeAn(neu, art);
    for (const Tabellenplan& plan : plaene)
        uebertrageZeilen(alt, plan, neu);
    if (art == Dateiart::Lager) setzeZaehler(neu);
}
