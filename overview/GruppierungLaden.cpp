#include "overview/GruppierungLaden.h"

#include "platform/controls/ComboBox.h"

using namespace Qt::StringLiterals;

void GruppierungLaden(ComboBox& liste, bool journal)
{
    liste.Clear();
    const QString text = liste.Text();
    if (text.isEmpty() || (!journal && (text == u"Datum" || text == u"Buchungsart")))
        liste.setText(u"Artikel"_s);
    for (const QString& zeile : {u"Artikel"_s, u"Artikelgruppe"_s, u"Artikel- und Untergruppe"_s})
        liste.AddItem(zeile);
    if (journal) liste.AddItem(u"Buchungsart"_s);
    liste.AddItem(u"Lagerort"_s);
}
