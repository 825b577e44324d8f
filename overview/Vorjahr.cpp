#include "overview/Vorjahr.h"

#include "core/farm/FeldVorhanden.h"
#include "platform/jet/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<jet::Recordset> einstellungen(jet::Database& journal)
{
    return journal.OpenRecordset(u"SELECT * FROM EINSTELLUNGEN"_s, jet::Kind::Dynaset);
}

} // namespace

bool ohneVorjahr(jet::Database& journal)
{
    const auto zeile = einstellungen(journal);
    if (zeile->Eof()) {
        if (!journal.Updatable()) return false;
        zeile->AddNew();
        zeile->Update();
        return false;
    }
    return FeldVorhanden(journal, u"Einstellungen"_s, u"Ohnevorjahr"_s) && (*zeile)[u"Ohnevorjahr"].toBool();
}

void setzeOhneVorjahr(jet::Database& journal, bool wert)
{
    const auto zeile = einstellungen(journal);
    zeile->Edit();
    zeile->Set(u"Ohnevorjahr", wert);
    zeile->Update();
}
