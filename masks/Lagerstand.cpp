#include "masks/Lagerstand.h"

#include "core/Journaldatei.h"
#include "platform/controls/NumberEdit.h"
#include "platform/jet/Recordset.h"
#include "platform/system/Blanks.h"
#include "transfer/ampel/AmpelLED.h"

using namespace Qt::StringLiterals;

namespace {

double summe(jet::Database& journal, const QString& abfrage)
{
    const auto ergebnis = journal.OpenRecordset(abfrage, jet::Kind::Snapshot);
    return ergebnis->Eof() ? 0 : (*ergebnis)[u"Bestand"].toDouble(); // NULL, no bookings, counts as 0
}

} // namespace

QString vergleichsform(const QString& name)
{
    return sys::trimBlanks(name).toLower();
}

double lagerstand(jet::Database& journal, const QString& Artikel, qint64 ID)
{
    return summe(journal, u"SELECT SUM(MENGE) AS Bestand FROM LAGERJOURNAL WHERE LCASE(TRIM(ARTIKEL)) = '"_s +
                              vergleichsform(Artikel) + u"' AND ID <> "_s + QString::number(ID));
}

double lagerstand(jet::Database& journal, const QString& Artikel, const QString& Lagerort, qint64 ID)
{
    return summe(journal, u"SELECT SUM(MENGE) AS Bestand FROM LAGERJOURNAL WHERE LCASE(TRIM(ARTIKEL)) = '"_s +
                              vergleichsform(Artikel) + u"' AND LCASE(TRIM(LAGERORTKURZKU)) = '"_s +
                              vergleichsform(Lagerort) + u"' AND ID <> "_s + QString::number(ID));
}

Lagerstand::Lagerstand(NumberEdit& bisher, NumberEdit* bisherGesamt, AmpelLED& Ampel)
    : m_bisher(bisher), m_bisherGesamt(bisherGesamt), m_Ampel(Ampel)
{}

void Lagerstand::leere()
{
    m_bisher.setValue(0);
    if (m_bisherGesamt) m_bisherGesamt->setValue(0);
}

void Lagerstand::lies(const QString& Artikel, const QString& Lagerort, qint64 ID)
{
    leere();
    const auto journal = oeffneJournaldatei();
    m_bisher.setValue(lagerstand(*journal, Artikel, Lagerort, ID));
    if (m_bisherGesamt) m_bisherGesamt->setValue(lagerstand(*journal, Artikel, ID));
}

void Lagerstand::zeigeAmpel(bool negativ)
{
    m_Ampel.setAmpel(negativ ? Rot : Gruen);
}
