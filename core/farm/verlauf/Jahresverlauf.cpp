#include "core/farm/verlauf/Jahresverlauf.h"

#include "platform/jet/Rounding.h"
#include "platform/jet/TextLiteral.h"
#include "platform/jet/Transaction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Stellen = 4; // as every view of stocks

enum Spalte { ID, Datum, Menge, Buchungsart, LagerortKurzKu, Uberstallt_alt, Kommentar };
const QString Spalten = u"ID, Datum, Menge, Buchungsart, LagerortKurzKu, Uberstallt_alt, Kommentar"_s;

QString bedingung(const Verlaufsziel& ziel)
{
    QString text = u" FROM LAGERJOURNAL WHERE Artikel = "_s + jet::textLiteral(ziel.Artikel);
    if (!ziel.LagerortKurzKu.isEmpty())
        text += u" AND LagerortKurzKu = "_s + jet::textLiteral(ziel.LagerortKurzKu);
    return text + u" AND NOT Isnull(Datum)"_s;
}

double zahl(const jet::Value& wert)
{
    return wert.isNull() ? 0 : wert.toDouble();
}

QString text(const jet::Value& wert)
{
    return wert.isNull() ? QString() : wert.toText();
}

/// Of the article at all its places: that is what an index tells without looking at the rows.
QStringList einheitenVon(jet::Database& datei, const QString& artikel)
{
    QStringList einheiten;
    const auto gefunden =
        datei.OpenRecordset(u"SELECT DISTINCT Einheit FROM LAGERJOURNAL WHERE Artikel = "_s +
                                jet::textLiteral(artikel) + u" AND Einheit <> ''"_s,
                            jet::Kind::Snapshot);
    for (; !gefunden->Eof(); gefunden->MoveNext())
        einheiten.append(text((*gefunden)[0]));
    return einheiten;
}

} // namespace

Jahresverlauf::Jahresverlauf(int jahr, std::unique_ptr<jet::Database> datei, const Verlaufsziel& ziel)
    : m_datei(std::move(datei)), m_kurve{jahr, {}}
{
    const jet::Reading zugleich(*m_datei); // the places of the rows and the days belong together
    m_zeilen = m_datei->OpenRecordset(u"SELECT "_s + Spalten + bedingung(ziel) + u" ORDER BY Datum, ID"_s);
    liesTage(bedingung(ziel));
    m_einheiten = einheitenVon(*m_datei, ziel.Artikel);
}

/// Bookings of one day at different times are groups of their own in the file.
void Jahresverlauf::liesTage(const QString& bedingung)
{
    const auto gruppen = m_datei->OpenRecordset(
        u"SELECT Datum, Sum(IIF(Menge > 0, Menge, 0)) AS Zugang, Sum(IIF(Menge < 0, -Menge, 0)) AS Abgang,"
        u" Sum(Menge) AS Summe, Count(*) AS Anzahl"_s +
            bedingung + u" GROUP BY Datum"_s,
        jet::Kind::Snapshot);
    double bestand = 0;
    qsizetype erste = 0;
    for (; !gruppen->Eof(); gruppen->MoveNext()) {
        const jet::Recordset& gruppe = *gruppen;
        const QDate tag = gruppe[0].toDateTime().date();
        auto& tage = m_kurve.tage;
        if (tage.empty() || tage.back().tag != tag) tage.push_back({.tag = tag, .erste = erste});
        Tagesstand& stand = tage.back();
        stand.Zugang += zahl(gruppe[1]);
        stand.Abgang += zahl(gruppe[2]);
        bestand += zahl(gruppe[3]);
        stand.Bestand = jet::Round(bestand, Stellen);
        stand.anzahl += gruppe[4].toLong();
        erste = stand.erste + stand.anzahl;
    }
}

qsizetype Jahresverlauf::platz(qint64 ID) const
{
    return buchungen() == 0 ? -1 : m_zeilen->FindFrom(0, u"ID = "_s + QString::number(ID));
}

std::optional<Verlaufsbuchung> Jahresverlauf::buchung(qsizetype platz) const
{
    const auto zeile = m_zeilen->RowAt(platz);
    if (!zeile) return {};
    const auto feld = [&zeile](Spalte spalte) { return (*zeile)[static_cast<std::size_t>(spalte)]; };
    const auto& tage = m_kurve.tage;
    const auto tag = std::prev(std::ranges::upper_bound(tage, platz, {}, &Tagesstand::erste));
    double bestand = tag == tage.begin() ? 0 : std::prev(tag)->Bestand;
    for (const auto& vorher : m_zeilen->RowsAt(tag->erste, platz - tag->erste + 1, {Menge}))
        if (vorher) bestand += zahl((*vorher)[0]);
    return Verlaufsbuchung{feld(ID).toLong(),          feld(Datum).toDateTime().date(),
                           text(feld(Buchungsart)),    text(feld(LagerortKurzKu)),
                           text(feld(Uberstallt_alt)), text(feld(Kommentar)),
                           zahl(feld(Menge)),          jet::Round(bestand, Stellen)};
}
