#include "core/farm/Buchung.h"

#include <algorithm>

namespace {

void lies(const jet::Value& feld, std::optional<QDate>& wert)
{
    wert = feld.toDate();
}

void lies(const jet::Value& feld, std::optional<QString>& wert)
{
    wert = feld.toText();
}

void lies(const jet::Value& feld, std::optional<double>& wert)
{
    wert = feld.toDouble();
}

void lies(const jet::Value& feld, std::optional<qint64>& wert)
{
    wert = feld.toLong();
}

} // namespace

Buchung gelesen(const jet::Recordset& journal)
{
    Buchung buchung;
    const auto& felder = journal.Fields();
    const auto liesSpalte = [&](const auto& spalte) {
        const bool istDa = std::ranges::any_of(felder, [&](const jet::Field& feld) {
            return feld.name.compare(spalte.name, Qt::CaseInsensitive) == 0;
        });
        if (!istDa) return;
        if (const jet::Value feld = journal[spalte.name]; !feld.isNull()) lies(feld, buchung.*spalte.wert);
    };
    std::apply([&](const auto&... spalte) { (liesSpalte(spalte), ...); }, buchung::Spalten);
    return buchung;
}
