#include "core/farm/stammdaten/Einlesung.h"

#include "core/farm/Namenswarnung.h"
#include "platform/jet/Conversion.h"
#include "platform/jet/TextOrder.h"

#include <zablager/DatabaseError.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

bool gleich(const QString& links, const QString& rechts)
{
    return jet::compareTexts(links, rechts) == 0;
}

struct Kleiner {
    bool operator()(const QStringList& links, const QStringList& rechts) const
    {
        return std::ranges::lexicographical_compare(
            links, rechts, [](const QString& l, const QString& r) { return jet::compareTexts(l, r) < 0; });
    }
};

/// A table of the database with what tells its rows apart.
class Ziel {
public:
    Ziel(jet::Database& datei, const Stammliste& ihre)
        : liste(ihre), zeilen(datei.OpenRecordset(u"SELECT * FROM "_s + ihre.tabelle + ihre.auswahl))
    {
        for (qsizetype platz = 0; platz < zeilen->RecordCount(); ++platz) {
            zeilen->SetAbsolutePosition(platz);
            m_stellen[liste.schluessel([&](QStringView feld) { return (*zeilen)[feld].toText(); })].push_back(
                platz);
        }
    }

    /// Makes the row current that the next line of this key means: equal keys, which old files may have,
    /// one after another. \returns whether there is one.
    bool finde(const QStringList& schluessel, std::size_t wievielte)
    {
        const auto stellen = m_stellen.find(schluessel);
        if (stellen == m_stellen.end() || wievielte >= stellen->second.size()) return false;
        zeilen->SetAbsolutePosition(stellen->second[wievielte]);
        return true;
    }

    const Stammliste& liste;
    const std::unique_ptr<jet::Recordset> zeilen;
    std::map<QStringList, std::vector<int>, Kleiner> gelesene; ///< Lines of the file, by key.

private:
    std::map<QStringList, std::vector<qsizetype>, Kleiner> m_stellen;
};

/// A column of the file and where it goes.
struct Spalte {
    QString titel;
    QString feld;
    bool istSperre = false;
};

class Einlesung {
public:
    Einlesung(const Csv& csv, const Stammtabelle& tabelle, jet::Database& datei)
        : m_csv(csv), m_tabelle(tabelle), m_preise(preise(csv)), m_zahlen(m_preise)
    {
        for (const Stammliste& liste : tabelle.teile)
            m_ziele.push_back(std::make_unique<Ziel>(datei, liste));
        for (const QString& titel : csv.titel)
            m_spalten.push_back(spalte(titel));
        verlangeSchluessel();
    }

    Einleseergebnis laufe()
    {
        for (const Csv::Zeile& zeile : m_csv.zeilen)
            if (Ziel* const ziel = zielVon(zeile)) nimm(*ziel, zeile);
        if (!m_preise.isEmpty()) m_ergebnis.zahlen = m_zahlen;
        return std::move(m_ergebnis);
    }

private:
    struct Wert {
        QString feld;
        jet::Value wert;
    };

    static QStringList preise(const Csv& csv);
    Spalte spalte(const QString& titel) const;
    void verlangeSchluessel() const;
    Ziel* zielVon(const Csv::Zeile& zeile);
    void nimm(Ziel& ziel, const Csv::Zeile& zeile);
    std::optional<std::vector<Wert>> werte(const Ziel& ziel, const Csv::Zeile& zeile);
    std::optional<jet::Value> wert(const jet::Field& feld, const Spalte& spalte, const Stammliste& liste,
                                   const Csv::Zeile& zeile, const QString& text);
    void schreibe(Ziel& ziel, const std::vector<Wert>& neue, bool gibtEs);
    void lehneAb(const Csv::Zeile& zeile, const QString& spalte, const QString& grund)
    {
        m_ergebnis.abgelehnte.push_back({zeile.nummer, spalte, grund});
    }

    const Csv& m_csv;
    const Stammtabelle& m_tabelle;
    const QStringList m_preise; ///< The only numbers there are.
    const Zahlform m_zahlen;
    std::vector<std::unique_ptr<Ziel>> m_ziele;
    std::vector<Spalte> m_spalten;
    Einleseergebnis m_ergebnis;
};

QStringList Einlesung::preise(const Csv& csv)
{
    QStringList zahlen;
    for (qsizetype i = 0; i < csv.titel.size(); ++i)
        if (gleich(csv.titel[i], u"Preis"_s))
            for (const Csv::Zeile& zeile : csv.zeilen)
                zahlen.append(zeile.zellen[i]);
    return zahlen;
}

Spalte Einlesung::spalte(const QString& titel) const
{
    const Stammliste& liste = m_tabelle.teile.front();
    if (!m_tabelle.teiltitel.isEmpty() && gleich(titel, m_tabelle.teiltitel)) return {titel, {}};
    if (!liste.sperre.isEmpty() && gleich(titel, Sperrtitel)) return {titel, {}, true};
    for (const auto& bekannte : liste.spalten)
        if (gleich(titel, bekannte.titel)) return {titel, bekannte.feld.toString()};
    throw jet::Error(jet::ErrorNumber::InvalidArgument, u"Eine Spalte '"_s + titel +
                                                            u"' hat die Tabelle '"_s + m_tabelle.name +
                                                            u"' nicht: "_s + m_tabelle.titel().join(u", "_s));
}

/// Without one of them rows would not be found again, and come twice.
void Einlesung::verlangeSchluessel() const
{
    const Stammliste& liste = m_tabelle.teile.front();
    const auto fehlt = [&](QStringView feld) {
        return std::ranges::none_of(m_spalten, [&](const Spalte& spalte) { return spalte.feld == feld; });
    };
    const bool reichtEines = !liste.alleNamen && !std::ranges::all_of(liste.namen, fehlt);
    for (const auto& spalte : liste.spalten)
        if (!reichtEines && fehlt(spalte.feld) &&
            std::ranges::find(liste.namen, spalte.feld) != liste.namen.end())
            throw jet::Error(jet::ErrorNumber::InvalidArgument,
                             u"Die Spalte '"_s + spalte.titel + u"' fehlt."_s);
}

Ziel* Einlesung::zielVon(const Csv::Zeile& zeile)
{
    if (m_tabelle.teiltitel.isEmpty()) return m_ziele.front().get();
    QString name;
    for (qsizetype i = 0; i < m_csv.titel.size(); ++i)
        if (gleich(m_csv.titel[i], m_tabelle.teiltitel)) name = zeile.zellen[i];
    for (qsizetype teil = 0; teil < m_tabelle.teilnamen.size(); ++teil)
        if (gleich(name, m_tabelle.teilnamen[teil])) return m_ziele[std::size_t(teil)].get();
    lehneAb(zeile, m_tabelle.teiltitel,
            u"'"_s + name + u"' gibt es nicht, sondern "_s + m_tabelle.teilnamen.join(u", "_s));
    return nullptr;
}

void Einlesung::nimm(Ziel& ziel, const Csv::Zeile& zeile)
{
    const auto neue = werte(ziel, zeile);
    if (!neue) return;
    const auto schluessel = ziel.liste.schluessel([&](QStringView feld) {
        const auto wert = std::ranges::find(*neue, feld, &Wert::feld);
        return wert == neue->end() ? QString() : wert->wert.toText();
    });
    if (schluessel.join(QString()).trimmed().isEmpty()) return lehneAb(zeile, {}, u"Der Name fehlt."_s);
    auto& gelesene = ziel.gelesene[schluessel];
    const bool gibtEs = ziel.finde(schluessel, gelesene.size());
    if (!gibtEs && !gelesene.empty())
        return lehneAb(zeile, {},
                       u"'%1' steht schon in Zeile %2."_s.arg(schluessel.join(u", "_s)).arg(gelesene.back()));
    gelesene.push_back(zeile.nummer);
    schreibe(ziel, *neue, gibtEs);
    if (gibtEs || ziel.liste.journalspalte.isEmpty()) return;
    const QString& name = schluessel.front();
    const QString warnung = m_tabelle.teilnamen.isEmpty() ? namenswarnung(name) : artikelwarnung(name);
    if (!warnung.isEmpty()) m_ergebnis.warnungen.append(warnung);
}

std::optional<std::vector<Einlesung::Wert>> Einlesung::werte(const Ziel& ziel, const Csv::Zeile& zeile)
{
    std::vector<Wert> alle;
    bool vollstaendig = true;
    for (std::size_t i = 0; i < m_spalten.size(); ++i) {
        const Spalte& spalte = m_spalten[i];
        if (spalte.feld.isEmpty() && !spalte.istSperre) continue; // tells the table
        const QString feld = spalte.istSperre ? ziel.liste.sperre.toString() : spalte.feld;
        const auto platz = ziel.zeilen->PlaceOf(feld);
        const QString& text = zeile.zellen[qsizetype(i)];
        if (!platz) { // of an old file
            if (!text.isEmpty()) lehneAb(zeile, spalte.titel, u"Die Datei hat diese Spalte nicht."_s);
            continue;
        }
        if (const auto neuer = wert(ziel.zeilen->Fields()[*platz], spalte, ziel.liste, zeile, text))
            alle.push_back({feld, *neuer});
        else
            vollstaendig = false;
    }
    return vollstaendig ? std::optional(std::move(alle)) : std::nullopt;
}

/// As the column takes it; no value: it is refused.
std::optional<jet::Value> Einlesung::wert(const jet::Field& feld, const Spalte& spalte,
                                          const Stammliste& liste, const Csv::Zeile& zeile,
                                          const QString& text)
{
    const auto abgelehnt = [&](const QString& grund) -> std::optional<jet::Value> {
        lehneAb(zeile, spalte.titel, grund);
        return {};
    };
    if (spalte.istSperre) {
        const bool ja = gleich(text, u"Ja"_s) || text == u"1"_s || gleich(text, u"x"_s);
        if (!ja && !text.isEmpty() && text != u"0"_s && !gleich(text, u"Nein"_s))
            return abgelehnt(u"'"_s + text + u"' ist weder Ja noch Nein."_s);
        return jet::Value(ja == liste.gesperrt);
    }
    if (text.isEmpty()) return jet::Value();
    if (feld.type == jet::Type::Double) {
        const auto zahl = m_zahlen.gelesen(text);
        return zahl ? std::optional(jet::Value(*zahl)) : abgelehnt(u"'"_s + text + u"' ist keine Zahl."_s);
    }
    if (feld.type == jet::Type::Date) {
        const QDate iso = QDate::fromString(text, Qt::ISODate);
        const auto tag =
            iso.isValid() ? std::optional(QDateTime(iso, QTime(0, 0), Qt::UTC)) : jet::readDate(text);
        return tag ? std::optional(jet::Value(*tag)) : abgelehnt(u"'"_s + text + u"' ist kein Tag."_s);
    }
    if (feld.type == jet::Type::Text && text.size() > feld.size)
        return abgelehnt(
            u"'%1' hat %2 Zeichen, Platz ist für %3."_s.arg(text).arg(text.size()).arg(feld.size));
    return jet::Value(text);
}

/// The spelling of a name that is there already stays: journals have it.
void Einlesung::schreibe(Ziel& ziel, const std::vector<Wert>& neue, bool gibtEs)
{
    jet::Recordset& zeilen = *ziel.zeilen;
    const auto aendert = [&](const Wert& neuer) {
        const bool istName = std::ranges::find(ziel.liste.namen, neuer.feld) != ziel.liste.namen.end();
        const QString alter = zelltext(zeilen[neuer.feld]);
        return istName ? !gleich(alter, zelltext(neuer.wert)) : alter != zelltext(neuer.wert);
    };
    if (gibtEs && std::ranges::none_of(neue, aendert)) {
        ++m_ergebnis.gleiche;
        return;
    }
    if (gibtEs) {
        zeilen.Edit();
    } else {
        zeilen.AddNew();
        for (const auto& vorgabe : ziel.liste.vorgaben)
            zeilen.Set(vorgabe.feld, vorgabe.wert);
    }
    for (const Wert& neuer : neue)
        if (!gibtEs || aendert(neuer)) zeilen.Set(neuer.feld, neuer.wert);
    zeilen.Update();
    ++(gibtEs ? m_ergebnis.geaenderte : m_ergebnis.neue);
}

} // namespace

Einleseergebnis liesEin(const Csv& csv, const Stammtabelle& tabelle, jet::Database& datei)
{
    return Einlesung(csv, tabelle, datei).laufe();
}
