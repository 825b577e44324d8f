#include "core/farm/jahresliste/Jahresliste.h"

#include "core/farm/Buchungsarten.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/TextLiteral.h"
#include "platform/jet/TextOrder.h"

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int Stellen = 4; // as every view of stocks

/// A receipt that tells what its goods have cost. Counts and transfers carry no price of their own.
const QString MitPreis = u"Buchungsart IN ('Anfangsbestand', 'Zukauf', 'Produktion', 'Ernte') AND Menge > 0"
                         u" AND Preis > 0"_s;
/// The price is that of so many units; empty, 0 and what is no number count as 1.
const QString Faktor = u"IIF(IIF(ISNUMERIC(Preisfaktor), CDBL(Preisfaktor), 0) = 0, 1, CDBL(Preisfaktor))"_s;

QString abfrage(int jahr)
{
    QString text =
        u"SELECT Artikelart, Artikel, LagerortKurzKu, Sum(Menge) AS Endbestand,"
        u" Min(IIF(Isnull(Einheit), '', Einheit)) AS Kleinste,"
        u" Max(IIF(Isnull(Einheit), '', Einheit)) AS Groeszte,"
        u" Sum(IIF(%1, Menge, 0)) AS Bepreist, Sum(IIF(%1, Menge * Preis / %2, 0)) AS Kosten"_s.arg(MitPreis,
                                                                                                    Faktor);
    for (qsizetype i = 0; i + 1 < jahresarten().size(); ++i)
        text += u", Sum(IIF(Buchungsart = %1, Menge, 0)) AS Art%2"_s.arg(jet::textLiteral(jahresarten()[i]))
                    .arg(i);
    return text + u" FROM LAGERJOURNAL WHERE Artikel <> '' AND Datum < #01/01/%1#"_s.arg(jahr + 1) +
           u" GROUP BY Artikelart, Artikel, LagerortKurzKu"_s;
}

QString text(const jet::Value& wert)
{
    return wert.isNull() ? QString() : wert.toText();
}

double zahl(const jet::Value& wert)
{
    return wert.isNull() ? 0 : wert.toDouble();
}

Jahreszeile gelesen(const jet::Recordset& zeile)
{
    Jahreszeile gelesene{text(zeile[u"Artikelart"]),
                         text(zeile[u"Artikel"]),
                         text(zeile[u"LagerortKurzKu"]),
                         {},
                         {},
                         jet::Round(zahl(zeile[u"Endbestand"]), Stellen),
                         {}};
    const QString einheit = text(zeile[u"Kleinste"]);
    const bool eineEinheit = jet::compareTexts(einheit, text(zeile[u"Groeszte"])) == 0;
    if (eineEinheit) gelesene.Einheit = einheit;
    const double bepreist = zahl(zeile[u"Bepreist"]);
    if (eineEinheit && bepreist > 0) gelesene.Preis = jet::Round(zahl(zeile[u"Kosten"]) / bepreist, Stellen);
    auto& arten = gelesene.jeBuchungsart;
    for (qsizetype i = 0; i + 1 < jahresarten().size(); ++i)
        arten.push_back(jet::Round(zahl(zeile[u"Art"_s + QString::number(i)]), Stellen));
    arten.push_back(
        jet::Round(gelesene.Endbestand - std::accumulate(arten.begin(), arten.end(), 0.0), Stellen));
    return gelesene;
}

} // namespace

std::optional<double> Jahreszeile::Wert() const
{
    if (!Preis) return {};
    constexpr int Cent = 100;
    constexpr int Genau = 9; // half a cent must not hang on what binary numbers make of it
    return std::round(jet::Round(Endbestand * *Preis * Cent, Genau)) / Cent;
}

const QStringList& jahresarten()
{
    static const QStringList arten{buchungsart::Anfangsbestand.toString(),
                                   buchungsart::Zukauf.toString(),
                                   u"Produktion"_s,
                                   u"Ernte"_s, // of a sibling program
                                   buchungsart::Verkauf.toString(),
                                   u"Eigenverbrauch"_s,
                                   u"Schwund"_s,
                                   u"Entsorgung"_s,
                                   buchungsart::Umbuchung.toString(),
                                   buchungsart::Korrektur.toString(),
                                   u"Sonstige"_s};
    return arten;
}

Jahressumme summe(const std::vector<Jahreszeile>& zeilen)
{
    Jahressumme summe;
    for (const Jahreszeile& zeile : zeilen) {
        summe.Wert += zeile.Wert().value_or(0);
        summe.ohnePreis += zeile.Preis ? 0 : 1;
    }
    summe.Wert = jet::Round(summe.Wert, 2); // of cents: dust alone
    return summe;
}

std::vector<Jahreszeile> jahresliste(jet::Database& journal, int jahr)
{
    std::vector<Jahreszeile> liste;
    const auto zeilen = journal.OpenRecordset(abfrage(jahr), jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        liste.push_back(gelesen(*zeilen));
    return liste;
}
