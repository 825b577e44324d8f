#include "overview/Auswahllisten.h"

#include "overview/Filter.h"
#include "platform/controls/ComboBox.h"
#include "platform/jet/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

void fuelle(ComboBox& liste, const QString& erste, jet::Database& journal, const QString& abfrage)
{
    const auto werte = journal.OpenRecordset(abfrage, jet::Kind::Snapshot);
    liste.Clear();
    liste.AddItem(erste);
    for (; !werte->Eof(); werte->MoveNext())
        liste.AddItem((*werte)[0].toText());
}

} // namespace

void fuelleLagerorte(ComboBox& liste, jet::Database& journal)
{
    fuelle(liste, AlleLagerorte, journal,
           u"SELECT DISTINCT LAGERORTKURZKU FROM LAGERJOURNAL"
           u" WHERE LEN(TRIM(IIF(Isnull(LAGERORTKURZKU),'',LAGERORTKURZKU))) > 0"_s);
}

void fuelleArtikelgruppen(ComboBox& liste, jet::Database& journal)
{
    fuelle(liste, AlleArtikelgruppen, journal,
           u"SELECT DISTINCT ARTIKELART FROM LAGERJOURNAL"
           u" WHERE LEN(TRIM(IIF(Isnull(ARTIKELART),'',ARTIKELART))) > 0"_s);
}

void fuelleArtikel(ComboBox& liste, jet::Database& journal, const QString& Artikelgruppe)
{
    QString abfrage =
        u"SELECT DISTINCT ARTIKEL FROM LAGERJOURNAL WHERE LEN(TRIM(IIF(Isnull(ARTIKEL),'',ARTIKEL))) > 0"_s;
    if (Artikelgruppe != AlleArtikelgruppen) abfrage += u" AND ARTIKELART = '"_s + Artikelgruppe + u"'"_s;
    fuelle(liste, AlleArtikel, journal, abfrage);
}
