#include "bench/BareAnsichten.h"

#include "platform/jet/value/Collation.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace {

/// The planner is told that the days take in most of the year: it then reads the groups along their index
/// instead of sorting rows into them.
constexpr char Bestandsliste[] =
    "SELECT sum(CASE WHEN %m<0 THEN -%m ELSE 0.0 END),sum(CASE WHEN %m>0 THEN %m ELSE 0.0 "
    "END),sum(%m),Artikel,%o,Artikelart,Einheit,Untergruppe,min(_rowid_) FROM LAGERJOURNAL"
    " WHERE Artikel<>'xx' %C AND likely(Datum>=?1) AND likely(Datum<=?2)%w"
    " GROUP BY Artikel %C,%gArtikelart %C,Einheit %C ORDER BY ";

constexpr char Zeilen[] = " FROM LAGERJOURNAL WHERE Artikel<>'xx' %C AND Datum>=?1 AND Datum<=?2%w";

/// A row with one sort key beside its day: the place of its text among all, or a number.
struct Zeile {
    double schluessel;
    int tag;
    qint64 id;
    auto operator<=>(const Zeile&) const = default;
};

constexpr double Null = -1e300; // stands first

int tagDerZeile(std::string_view text)
{
    int tag = 0;
    for (const char c : text)
        if (c != '-') tag = 10 * tag + (c - '0');
    return tag;
}

/// Texts by the order in which they were met.
class Texte {
public:
    int nummer(std::string_view text)
    {
        const auto gefunden = m_nummern.find(text);
        if (gefunden != m_nummern.end()) return gefunden->second;
        return m_nummern.emplace(text, static_cast<int>(m_nummern.size())).first->second;
    }

    /// The place of each in German order, by its number.
    std::vector<int> plaetze() const
    {
        std::vector<const std::pair<const std::string, int>*> sortiert;
        for (const auto& text : m_nummern)
            sortiert.push_back(&text);
        std::ranges::sort(sortiert,
                          [](auto* a, auto* b) { return jet::compareTexts(a->first, b->first) < 0; });
        std::vector<int> plaetze(sortiert.size());
        int platz = 0;
        for (std::size_t i = 0; i < sortiert.size(); ++i) {
            if (i > 0 && jet::compareTexts(sortiert[i - 1]->first, sortiert[i]->first) != 0) ++platz;
            plaetze[static_cast<std::size_t>(sortiert[i]->second)] = platz;
        }
        return plaetze;
    }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    std::unordered_map<std::string, int, Hash, std::equal_to<>> m_nummern;
};

} // namespace

BareAnsichten::BareAnsichten(const QString& datei)
    : m_datei(datei), m_reparatur(m_datei, "UPDATE LAGERJOURNAL SET Einheit='l' WHERE Einheit='Lt' %C"
                                           " AND Artikelart='Pflanzenschutzmittel' %C")
{}

void BareAnsichten::repariere()
{
    m_reparatur.run();
}

BareStatement& BareAnsichten::vorbereitet(QByteArray text, const Ausschnitt& aus)
{
    QByteArray weiter;
    if (!aus.artikel.isEmpty()) weiter += " AND Artikel=?3 %C";
    if (!aus.lagerort.isEmpty()) weiter += " AND LagerortKurzKu=?4 %C";
    text.replace("%w", weiter).replace("%m", "jet_round(ifnull(Menge,0),4)");
    auto& anweisung = m_anweisungen[text];
    if (!anweisung) anweisung = std::make_unique<BareStatement>(m_datei, text);
    m_von = aus.von.toString(Qt::ISODate).toLatin1();
    m_bis = aus.bis.toString(Qt::ISODate).toLatin1();
    m_artikel = aus.artikel;
    m_lagerort = aus.lagerort;
    anweisung->bind(1, m_von);
    anweisung->bind(2, m_bis);
    anweisung->bind(3, m_artikel);
    anweisung->bind(4, m_lagerort);
    return *anweisung;
}

std::vector<qint64> BareAnsichten::schluessel(const Ausschnitt& aus, const QByteArray& spalte,
                                              bool absteigend)
{
    std::vector<qint64> schluessel;
    if (spalte.isEmpty()) {
        auto& zeilen = vorbereitet(QByteArray("SELECT _rowid_") + Zeilen + " ORDER BY Datum,ID", aus);
        while (zeilen.step())
            schluessel.push_back(zeilen.whole(0));
        zeilen.reset();
    } else {
        schluessel = sortiert(aus, spalte);
    }
    if (absteigend) std::ranges::reverse(schluessel);
    return schluessel;
}

std::vector<qint64> BareAnsichten::sortiert(const Ausschnitt& aus, const QByteArray& spalte)
{
    const bool istMenge = spalte == "Menge"; // by it alone
    const bool istZahl = istMenge || spalte == "Preis";
    auto& anweisung = vorbereitet("SELECT _rowid_," + spalte + (istMenge ? "" : ",Datum") + Zeilen, aus);
    Texte texte;
    std::vector<Zeile> zeilen;
    while (anweisung.step()) {
        Zeile zeile{Null, 0, anweisung.whole(0)};
        if (!anweisung.isNull(1))
            zeile.schluessel = istZahl ? anweisung.number(1) : texte.nummer(anweisung.view(1));
        if (!istMenge) zeile.tag = tagDerZeile(anweisung.view(2));
        zeilen.push_back(zeile);
    }
    anweisung.reset();
    const auto plaetze = texte.plaetze();
    for (Zeile& zeile : zeilen)
        if (!istZahl && zeile.schluessel != Null)
            zeile.schluessel = plaetze[static_cast<std::size_t>(zeile.schluessel)];
    std::ranges::sort(zeilen, std::less());
    std::vector<qint64> schluessel;
    for (const Zeile& zeile : zeilen)
        schluessel.push_back(zeile.id);
    return schluessel;
}

std::vector<Bestandszeile> BareAnsichten::bestandsliste(const Ausschnitt& aus, bool inSumme,
                                                        const QByteArray& ordnung)
{
    QByteArray text = Bestandsliste + ordnung;
    text.replace("%o", inSumme ? "'x'" : "LagerortKurzKu").replace("%g", inSumme ? "" : "LagerortKurzKu %C,");
    auto& anweisung = vorbereitet(text, aus);
    std::vector<Bestandszeile> zeilen;
    while (anweisung.step())
        zeilen.push_back({anweisung.text(3), anweisung.text(4), anweisung.number(1), anweisung.number(0),
                          anweisung.number(2)});
    anweisung.reset();
    return zeilen;
}
