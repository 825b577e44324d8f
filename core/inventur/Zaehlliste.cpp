#include "core/inventur/Zaehlliste.h"

#include "core/Datumstext.h"
#include "core/SQLTexte.h"
#include "core/farm/Buchungsarten.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/TextOrder.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Stellen = 4; // as every view of stocks

QString abfrage(QDate tag)
{
    const QString danach = SQLDatum(datumText(tag.addDays(1)));
    return u"SELECT Artikel, LagerortKurzKu, Last(Artikelart) AS Art, Last(Einheit) AS Masz,"
           u" Sum(IIF(Datum < "_s +
           danach + u", Menge, 0)) AS Bestand, Max(IIF(Datum >= "_s + danach +
           u", 1, 0)) AS Danach, Min(IIF(Isnull(Einheit), '', Einheit)) AS Kleinste,"
           u" Max(IIF(Isnull(Einheit), '', Einheit)) AS Groeszte,"
           u" Max(IIF(Buchungsart = '"_s +
           buchungsart::Korrektur.toString() +
           u"', Datum, NULL)) AS Gezaehlt FROM LAGERJOURNAL WHERE Artikel <> '' AND LagerortKurzKu <> ''"
           u" GROUP BY Artikel, LagerortKurzKu"_s;
}

QString text(const jet::Value& wert)
{
    return wert.isNull() ? QString() : wert.toText();
}

} // namespace

bool Paar::operator<(const Paar& anderes) const
{
    const int artikel = jet::compareTexts(Artikel, anderes.Artikel);
    return artikel != 0 ? artikel < 0 : jet::compareTexts(LagerortKurzKu, anderes.LagerortKurzKu) < 0;
}

std::optional<double> Zaehlzeile::Differenz() const
{
    if (!Gezaehlt) return {};
    return jet::Round(*Gezaehlt - Bestand, Stellen);
}

std::vector<Zaehlzeile> zaehlliste(jet::Database& journal, QDate tag)
{
    std::vector<Zaehlzeile> liste;
    const auto paare = journal.OpenRecordset(abfrage(tag), jet::Kind::Snapshot);
    for (; !paare->Eof(); paare->MoveNext()) {
        const auto wert = [&paare](QStringView spalte) { return (*paare)[spalte]; };
        Zaehlzeile zeile;
        zeile.paar = {text(wert(u"Artikel")), text(wert(u"LagerortKurzKu"))};
        zeile.Artikelart = text(wert(u"Art"));
        zeile.Einheit = text(wert(u"Masz"));
        if (const auto bestand = wert(u"Bestand"); !bestand.isNull())
            zeile.Bestand = jet::Round(bestand.toDouble(), Stellen);
        if (const auto tagDavor = wert(u"Gezaehlt"); !tagDavor.isNull())
            zeile.LetzteZaehlung = tagDavor.toDateTime().date();
        zeile.ZweiEinheiten = jet::compareTexts(text(wert(u"Kleinste")), text(wert(u"Groeszte"))) != 0;
        zeile.SpaetereBuchungen = wert(u"Danach").toLong() != 0;
        liste.push_back(std::move(zeile));
    }
    return liste;
}
