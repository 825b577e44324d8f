#include "masks/Bestandswarnung.h"

#include "core/Datumstext.h"
#include "core/Journaldatei.h"
#include "masks/Lagerstand.h"
#include "platform/jet/Errors.h"
#include "platform/jet/NumberFormat.h"
#include "platform/jet/Rounding.h"
#include "platform/jet/TextLiteral.h"

#include <QLabel>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int Stellen = 4; // as every view of stocks

struct Unterschreitung {
    QDate ab; ///< The first evening on which it is so.
    double tiefster = 0;
};

/// What bookings change in a pair.
struct Aenderung {
    QString name, einheit;
    std::map<QDate, double> jeTag;
};

std::optional<Unterschreitung> unterschreitung(const std::map<QDate, double>& summen,
                                               const std::map<QDate, double>& aenderungen)
{
    auto tage = summen;
    for (const auto& aenderung : aenderungen)
        tage.try_emplace(aenderung.first, 0);
    std::optional<Unterschreitung> gefunden;
    double bisher = 0;
    double danach = 0;
    for (const auto& [tag, menge] : tage) {
        const auto dazu = aenderungen.find(tag);
        bisher += menge;
        danach += menge + (dazu == aenderungen.end() ? 0 : dazu->second);
        const double neu = jet::Round(danach, Stellen);
        if (neu >= 0 || neu >= jet::Round(bisher, Stellen)) continue;
        if (!gefunden) gefunden = {tag, neu};
        gefunden->tiefster = std::min(gefunden->tiefster, neu);
    }
    return gefunden;
}

QString text(const std::optional<QString>& wert)
{
    return wert.value_or(QString());
}

} // namespace

void Bestandswarnung::zeige(const std::vector<Buchung>& neue)
{
    try {
        m_zeile.setText(satz(neue));
    } catch (const jet::Error&) {
        m_zeile.clear(); // keeps nobody from booking; what is wrong with the file is told at the save
    }
}

QString Bestandswarnung::satz(const std::vector<Buchung>& neue)
{
    std::map<Paar, Aenderung> paare;
    const auto nimm = [&](const Buchung& zeile, int vorzeichen) {
        const QString artikel = text(zeile.Artikel), ort = text(zeile.LagerortKurzKu);
        if (artikel.isEmpty() || ort.isEmpty() || !zeile.Datum || !zeile.Datum->isValid()) return;
        Aenderung& aenderung = paare[{vergleichsform(artikel), vergleichsform(ort)}];
        aenderung.name = artikel + u" in "_s + ort;
        aenderung.einheit = text(zeile.Einheit);
        aenderung.jeTag[*zeile.Datum] += vorzeichen * zeile.Menge.value_or(0);
    };
    for (const Buchung& zeile : m_vorher)
        nimm(zeile, -1);
    for (const Buchung& zeile : neue)
        nimm(zeile, 1);
    QStringList saetze;
    for (const auto& [paar, aenderung] : paare) {
        const auto unter = unterschreitung(summen(paar), aenderung.jeTag);
        if (!unter) continue;
        const QString einer = u"Ab "_s + datumText(unter->ab) + u" negativ, tiefster Stand "_s +
                              jet::formatted(unter->tiefster, u"##,##0.####") + u' ' + aenderung.einheit;
        saetze.append((paare.size() > 1 ? aenderung.name + u": "_s : QString()) + einer.trimmed());
    }
    return saetze.join(u'\n');
}

const Bestandswarnung::Tagessummen& Bestandswarnung::summen(const Paar& paar)
{
    const auto journal = oeffneJournaldatei();
    if (const jet::ChangeMark marke = journal->Mark(); marke != m_marke) {
        m_summen.clear();
        m_marke = marke;
    }
    const auto [gemerkte, neu] = m_summen.try_emplace(paar);
    if (!neu) return gemerkte->second;
    const auto tage = journal->OpenRecordset(
        u"SELECT Datum, Sum(Menge) AS Summe FROM LAGERJOURNAL WHERE LCASE(TRIM(ARTIKEL)) = "_s +
            jet::textLiteral(paar.first) + u" AND LCASE(TRIM(LAGERORTKURZKU)) = "_s +
            jet::textLiteral(paar.second) + u" AND NOT Isnull(Datum) GROUP BY Datum"_s,
        jet::Kind::Snapshot);
    for (; !tage->Eof(); tage->MoveNext())
        if (const jet::Value summe = (*tage)[1]; !summe.isNull())
            gemerkte->second[(*tage)[0].toDateTime().date()] += summe.toDouble();
    return gemerkte->second;
}
