#include "bench/Musterjournal.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int OrteJeArtikel = 10;

// clang-format off
struct Ware { QStringView name, art, einheit, preisfaktor; };
constexpr Ware Waren[] = {
    {u"Winterweizen",         u"Pflanzliche Erzeugnisse", u"dt", u"1"},
    {u"Süßlupine",            u"Pflanzliche Erzeugnisse", u"dt", u"1"},
    {u"Öllein",               u"Saatgut/Sorten",          u"kg", u"100"},
    {u"Körnermais",           u"Saatgut/Sorten",          u"E",  u"1"},
    {u"Kalkammonsalpeter",    u"Handelsdünger",           u"dt", u"1"},
    {u"Rindergülle",          u"Wirtschaftsdünger",       u"m3", u"1"},
    {u"Milchleistungsfutter", u"Futtermittel",            u"dt", u"1"},
    {u"Kälberstarter",        u"Futtermittel",            u"kg", u"100"},
    {u"Diesel",               u"Treib- und Brennstoffe",  u"l",  u"100"},
    {u"Wachstumsregler",      u"Pflanzenschutzmittel",    u"l",  u"1"},
};
constexpr QStringView Orte[OrteJeArtikel] = {u"H1", u"H2", u"H3", u"SILO1", u"SILO2", u"TANK", u"SCHEUNE",
                                             u"KÜHLHAUS", u"FELDRAND", u"HALLE SÜD"};
constexpr QStringView Buchungsarten[] = {u"Zukauf", u"Verkauf", u"Eigenverbrauch", u"Ernte", u"Korrektur"};
// clang-format on

/// A number that looks random, of two numbers (the mixer of the SplitMix64 generator).
quint64 gemischt(int a, int b)
{
    quint64 x = (static_cast<quint64>(a) << 32) + static_cast<quint64>(b) + 0x9E3779B97F4A7C15;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EB;
    return x ^ (x >> 31);
}

const Ware& ware(int paar)
{
    return Waren[static_cast<std::size_t>(paar / OrteJeArtikel) % std::size(Waren)];
}

} // namespace

Musterjournal::Musterjournal(int jahr, int zeilen, int paare) : m_jahr(jahr), m_zeilen(zeilen), m_paare(paare)
{
    Q_ASSERT(zeilen >= paare && paare > 0);
}

QString Musterjournal::artikel(int paar)
{
    return ware(paar).name.toString() + u" "_s + QString::number(paar / OrteJeArtikel + 1);
}

QString Musterjournal::artikelart(int paar)
{
    return ware(paar).art.toString();
}

QString Musterjournal::lagerort(int paar)
{
    return Orte[paar % OrteJeArtikel].toString();
}

Musterzeile Musterjournal::zeile(int nummer) const
{
    const QDate ersterTag(m_jahr, 1, 1);
    const quint64 zufall = gemischt(m_jahr, nummer);
    Musterzeile zeile;
    zeile.tag = ersterTag.addDays(qint64{nummer} * ersterTag.daysInYear() / m_zeilen);
    const auto paare = static_cast<quint64>(m_paare);
    // A year of many rows a pair begins with one of each, so that none is missing.
    zeile.paar = nummer < m_paare ? nummer : static_cast<int>(zufall % paare);
    zeile.menge = (static_cast<double>((zufall >> 32) % 400'000) - 100'000) / 1000;
    return zeile;
}

void Musterjournal::schreibe(jet::Database& journal) const
{
    const auto tabelle = journal.OpenRecordset(u"LAGERJOURNAL"_s);
    journal.BeginTrans();
    for (int i = 0; i < m_zeilen; ++i) {
        const Musterzeile neu = zeile(i);
        const quint64 zufall = gemischt(-m_jahr, i);
        tabelle->AddNew();
        tabelle->Set(u"Datum", neu.tag);
        tabelle->Set(u"Artikel", artikel(neu.paar));
        tabelle->Set(u"Artikelart", artikelart(neu.paar));
        tabelle->Set(u"LagerortKurzKu", lagerort(neu.paar));
        tabelle->Set(u"Menge", neu.menge);
        tabelle->Set(u"Buchungsmenge", neu.menge);
        if (zufall % 8 != 0) tabelle->Set(u"Preis", static_cast<double>(zufall % 10'000) / 100);
        tabelle->Set(u"Preisfaktor", ware(neu.paar).preisfaktor.toString());
        tabelle->Set(u"Einheit", ware(neu.paar).einheit.toString());
        tabelle->Set(u"Buchungsart", Buchungsarten[zufall % std::size(Buchungsarten)].toString());
        tabelle->Set(u"BuchungsID", 0);
        if (zufall % 16 == 0) tabelle->Set(u"Kommentar", u"Lieferung über Mühle Würth, geprüft"_s);
        if (zufall % 4 == 0) tabelle->Set(u"Uberstallt_alt", u"Lagerhaus "_s + QString::number(zufall % 40));
        tabelle->Update();
    }
    journal.CommitTrans();
}

std::vector<Bestandsfrage> Musterjournal::fragen(int anzahl) const
{
    std::vector<Bestandsfrage> fragen;
    for (int i = 0; i < anzahl; ++i) {
        const quint64 zufall = gemischt(i, m_jahr);
        fragen.push_back({static_cast<int>(zufall % static_cast<quint64>(m_paare)),
                          QDate(m_jahr, 1, 1).addDays(static_cast<qint64>((zufall >> 32) % 365))});
    }
    return fragen;
}

std::vector<double> Musterjournal::antworten(const std::vector<Bestandsfrage>& fragen) const
{
    std::vector<std::vector<std::size_t>> fragenZuPaar(static_cast<std::size_t>(m_paare));
    for (std::size_t i = 0; i < fragen.size(); ++i)
        fragenZuPaar[static_cast<std::size_t>(fragen[i].paar)].push_back(i);
    std::vector<double> antworten(fragen.size());
    for (int i = 0; i < m_zeilen; ++i) {
        const Musterzeile zeile = this->zeile(i);
        for (const std::size_t frage : fragenZuPaar[static_cast<std::size_t>(zeile.paar)])
            if (zeile.tag <= fragen[frage].tag) antworten[frage] += zeile.menge;
    }
    return antworten;
}

std::vector<double> Musterjournal::summen() const
{
    std::vector<double> summen(static_cast<std::size_t>(m_paare));
    for (int i = 0; i < m_zeilen; ++i) {
        const Musterzeile zeile = this->zeile(i);
        summen[static_cast<std::size_t>(zeile.paar)] += zeile.menge;
    }
    return summen;
}
