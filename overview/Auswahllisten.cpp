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

/// Articles of one kind, or of all when the filter does not name one.
void fuelleArtikel(ComboBox& liste, jet::Database& journal, const QString& Artikelgruppe)
{
    QString abfrage =
        u"SELECT DISTINCT ARTIKEL FROM LAGERJOURNAL WHERE LEN(TRIM(IIF(Isnull(ARTIKEL),'',ARTIKEL))) > 0"_s;
    if (Artikelgruppe != AlleArtikelgruppen) abfrage += u" AND ARTIKELART = '"_s + Artikelgruppe + u"'"_s;
    fuelle(liste, AlleArtikel, journal, abfrage);
}

/// Back to the first row where the text is none of the list.
void nurBekanntes(ComboBox& liste)
{
    if (liste.ListIndex() < 0) liste.setText(liste.Cell(0, 0));
}

} // namespace

void fuelle(const Filterlisten& listen, jet::Database& journal)
{
    fuelleLagerorte(listen.drpLagerOrte, journal);
    fuelleArtikelgruppen(listen.drpArtikelGruppe, journal);
    fuelleArtikel(listen.drpArtikel, journal, listen.drpArtikelGruppe.Text());
}

/// The kind comes before the articles, which are those of the kind.
void fuelleFuerAnderesJahr(const Filterlisten& listen, jet::Database& journal)
{
    fuelleLagerorte(listen.drpLagerOrte, journal);
    nurBekanntes(listen.drpLagerOrte);
    fuelleArtikelgruppen(listen.drpArtikelGruppe, journal);
    nurBekanntes(listen.drpArtikelGruppe);
    fuelleArtikel(listen.drpArtikel, journal, listen.drpArtikelGruppe.Text());
    nurBekanntes(listen.drpArtikel);
}
