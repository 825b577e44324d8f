#include "core/farm/Buchung.h"

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
    const auto liesSpalte = [&](const auto& spalte) {
        const auto platz = journal.PlaceOf(spalte.name);
        if (!platz) return;
        if (const jet::Value feld = journal[qsizetype(*platz)]; !feld.isNull())
            lies(feld, buchung.*spalte.wert);
    };
    std::apply([&](const auto&... spalte) { (liesSpalte(spalte), ...); }, buchung::Spalten);
    return buchung;
}
