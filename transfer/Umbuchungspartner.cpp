#include "transfer/Umbuchungspartner.h"

#include "core/farm/Buchungsarten.h"
#include "platform/controls/DataControl.h"

using namespace Qt::StringLiterals;

bool bewegeZu(DataControl& Journaldaten, qint64 ID)
{
    Journaldaten.FindFirst(u"ID = "_s + QString::number(ID));
    return !Journaldaten.NoMatch();
}

std::optional<qint64> umbuchungspartner(DataControl& Journaldaten, qint64 ID)
{
    const auto zeilen = Journaldaten.Database().OpenRecordset(
        u"SELECT ID, BUCHUNGSART FROM LAGERJOURNAL WHERE VERFUTTERT_AN = '"_s + QString::number(ID) + u"'"_s,
        jet::Kind::Snapshot);
    std::optional<qint64> verdeckt;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        if ((*zeilen)[u"BUCHUNGSART"].toText() != buchungsart::Umbuchung) continue;
        const qint64 gefunden = (*zeilen)[u"ID"].toLong();
        if (bewegeZu(Journaldaten, gefunden)) return gefunden;
        if (!verdeckt) verdeckt = gefunden;
    }
    return verdeckt;
}
