#include "core/farm/FeldVorhanden.h"

#include <algorithm>

bool FeldVorhanden(const jet::Database& datenbank, const QString& tabelle, const QString& spalte)
{
    const auto gleich = [](const QString& a, const QString& b) { return a.toLower() == b.toLower(); };
    const std::vector<jet::TableDef> tabellen = datenbank.TableDefs();
    return std::any_of(tabellen.begin(), tabellen.end(), [&](const jet::TableDef& t) {
        return gleich(t.name, tabelle) &&
               std::any_of(t.fields.begin(), t.fields.end(),
                           [&](const jet::Field& feld) { return gleich(feld.name, spalte); });
    });
}
