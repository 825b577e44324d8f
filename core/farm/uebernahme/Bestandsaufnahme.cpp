#include "core/farm/uebernahme/Bestandsaufnahme.h"

#include "core/farm/Artikelarten.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t GenannteVerluste = 20;

/// Which names a table gives to articles, and to places and partners.
struct Namensspalten {
    int artikel = -1;
    std::vector<int> andere;
};

Namensspalten namensspalten(const Tabellenplan& plan, Dateiart art)
{
    if (art == Dateiart::Lager)
        return {plan.stelle(u"Artikel"), {plan.stelle(u"LagerortKurzKu"), plan.stelle(u"Uberstallt_alt")}};
    if (art == Dateiart::Anlagen || plan.ziel.compare(u"HANDLER", Qt::CaseInsensitive) == 0)
        return {-1, {plan.stelle(u"KurzKu")}};
    if (art == Dateiart::Grundstamm) return {plan.stelle(u"NAME"), {}};
    return {};
}

class Aufnahme {
public:
    Aufnahme(const Tabellenplan& plan, Dateiart art, Bestandsaufnahme& ergebnis, Breiten& breiten)
        : m_plan(plan), m_art(art), m_ergebnis(ergebnis), m_breiten(breiten),
          m_namen(namensspalten(plan, art)), m_datum(art == Dateiart::Lager ? plan.stelle(u"Datum") : -1),
          m_laengste(plan.spalten.size())
    {}

    void zeile(const std::vector<oldfile::Cell>& zellen)
    {
        ++m_zeile;
        for (std::size_t i = 0; i < zellen.size(); ++i)
            zelle(static_cast<int>(i), zellen[i]);
    }

    void fertig()
    {
        for (std::size_t i = 0; i < m_laengste.size(); ++i)
            if (m_plan.spalten[i].verlust.isEmpty())
                m_breiten.braucht(m_art, m_plan.ziel, m_plan.spalten[i].ziel.name, m_laengste[i]);
    }

private:
    void zelle(int stelle, const oldfile::Cell& alt)
    {
        const auto& spalte = m_plan.spalten[static_cast<std::size_t>(stelle)];
        if (std::holds_alternative<std::monostate>(alt)) return;
        if (!spalte.verlust.isEmpty()) return verliere(stelle, spalte.verlust);
        const Zelle neu = umgesetzt(alt, spalte.ziel);
        if (!neu.verlust.isEmpty()) return verliere(stelle, neu.verlust);
        if (stelle == m_datum) m_ergebnis.jahre.insert(neu.wert.toDate().year());
        if (neu.wert.type() != jet::Type::Text) return;
        const QString text = neu.wert.toText();
        int& laengste = m_laengste[static_cast<std::size_t>(stelle)];
        laengste = std::max(laengste, static_cast<int>(text.size()));
        if (stelle == m_namen.artikel) m_ergebnis.artikel.insert(text);
        if (std::ranges::find(m_namen.andere, stelle) != m_namen.andere.end()) m_ergebnis.namen.insert(text);
    }

    void verliere(int stelle, const QString& grund)
    {
        ++m_ergebnis.verluste_insgesamt;
        if (m_ergebnis.verluste.size() < GenannteVerluste)
            m_ergebnis.verluste.push_back(
                {m_plan.alt.name, m_zeile, m_plan.alt.columns[static_cast<std::size_t>(stelle)].name, grund});
    }

    const Tabellenplan& m_plan;
    const Dateiart m_art;
    Bestandsaufnahme& m_ergebnis;
    Breiten& m_breiten;
    const Namensspalten m_namen;
    const int m_datum;
    std::vector<int> m_laengste;
    qint64 m_zeile = 0;
};

} // namespace

Bestandsaufnahme nimmAuf(const oldfile::File& datei, Dateiart art, const std::vector<Tabellenplan>& plaene,
                         Breiten& breiten)
{
    Bestandsaufnahme ergebnis;
    for (const Tabellenplan& plan : plaene) {
        Aufnahme aufnahme(plan, art, ergebnis, breiten);
        datei.read(plan.alt, [&](const std::vector<oldfile::Cell>& zellen) { aufnahme.zeile(zellen); });
        aufnahme.fertig();
    }
    return ergebnis;
}
