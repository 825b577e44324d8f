#include "host/demo/Hofkalender.h"

#include "core/farm/Buchungsarten.h"
#include "host/demo/Tabelle.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool istAbgang(const QString& buchungsart)
{
    const auto* const art = buchungsartZu(buchungsart);
    return art && art->ausgang;
}

QDate werktag(QDate tag)
{
    return tag.dayOfWeek() == Qt::Sunday ? tag.addDays(-1) : tag;
}

} // namespace

Hofkalender::Hofkalender(const Sortiment& sortiment) : m_sortiment(&sortiment)
{
    for (const auto& zeile : tabelle(u"kalender"_s))
        m_eintraege.push_back(eintrag(sortiment, zeile));
}

Hofkalender::Eintrag Hofkalender::eintrag(const Sortiment& sortiment, const QHash<QString, QString>& zeile)
{
    Eintrag neu;
    neu.muster.buchungsart = zeile[u"Buchungsart"_s];
    neu.muster.ware = &sortiment.ware(zeile[u"Artikel"_s]);
    neu.muster.ort = zeile[u"Ort"_s];
    neu.muster.partner = zeile[u"Partner"_s];
    neu.muster.merkmal = zeile[u"Merkmal"_s];
    neu.muster.kommentar = zeile[u"Kommentar"_s];
    neu.muster.ausSchollwart = zeile[u"Schollwart"_s] == u"Ja"_s;
    neu.muster.nachOrt = zeile[u"NachOrt"_s];
    if (!neu.muster.nachOrt.isEmpty()) neu.muster.nachWare = &sortiment.ware(zeile[u"NachArtikel"_s]);
    neu.beginn = zeile[u"Beginn"_s];
    neu.abstand = zeile[u"Abstand"_s].toInt();
    neu.anzahl = zeile[u"Anzahl"_s].toInt();
    neu.istAnteil = zeile[u"Menge"_s].endsWith(u" %"_s);
    neu.menge = hundertstel(zeile[u"Menge"_s].section(u' ', 0, 0));
    neu.streuung = zeile[u"Streuung"_s].toInt();
    return neu;
}

std::vector<Vorgang> Hofkalender::anfangsbestand(int jahr)
{
    std::vector<Vorgang> buchungen;
    for (const auto& zeile : tabelle(u"anfangsbestand"_s)) {
        Vorgang& neu = buchungen.emplace_back();
        neu.tag = QDate(jahr, 1, 1);
        neu.buchungsart = buchungsart::Anfangsbestand.toString();
        neu.ware = &m_sortiment->ware(zeile[u"Artikel"_s]);
        neu.ort = zeile[u"Ort"_s];
        neu.menge = hundertstel(zeile[u"Menge"_s]);
        bestand(*neu.ware, neu.ort) += neu.menge;
    }
    return buchungen;
}

std::vector<Vorgang> Hofkalender::jahr(int jahr)
{
    std::vector<Vorgang> buchungen;
    for (const Termin& termin : termine(jahr)) {
        Vorgang neu = termin.eintrag->muster;
        neu.tag = termin.tag;
        neu.menge = menge(termin);
        if (neu.menge == 0) continue;
        bestand(*neu.ware, neu.ort) += neu.menge;
        if (neu.nachWare) bestand(*neu.nachWare, neu.nachOrt) -= neu.menge;
        buchungen.push_back(std::move(neu));
    }
    return buchungen;
}

/// All dates of the calendar in that year, by day; those of one day in the order of the calendar.
std::vector<Hofkalender::Termin> Hofkalender::termine(int jahr) const
{
    constexpr quint64 Zeilenabstand = 1000; // more than any line has dates
    std::vector<Termin> alle;
    quint64 stelle = 0;
    for (const Eintrag& eintrag : m_eintraege) {
        const QDate beginn = QDate::fromString(eintrag.beginn + QString::number(jahr), u"dd.MM.yyyy"_s);
        for (int i = 0; i < eintrag.anzahl; ++i) {
            const QDate tag = werktag(beginn.addDays(qint64{i} * eintrag.abstand));
            if (tag.year() == jahr) alle.push_back({tag, &eintrag, stelle + quint64(i)});
        }
        stelle += Zeilenabstand;
    }
    std::stable_sort(alle.begin(), alle.end(),
                     [](const Termin& a, const Termin& b) { return a.tag < b.tag; });
    return alle;
}

qint64 Hofkalender::menge(const Termin& termin) const
{
    const Eintrag& eintrag = *termin.eintrag;
    const Ware& ware = *eintrag.muster.ware;
    const qint64 vorhanden = m_bestaende.value({ware.name, eintrag.muster.ort});
    const qint64 gewollt = eintrag.istAnteil ? vorhanden * eintrag.menge / 10'000 : eintrag.menge;
    const qint64 getippt =
        gestreut(gewollt, eintrag.streuung, ware.schritt, termin.tag.year(), termin.stelle);
    return std::max(istAbgang(eintrag.muster.buchungsart) ? -getippt : getippt, -vorhanden);
}
