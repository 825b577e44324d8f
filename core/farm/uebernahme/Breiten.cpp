#include "core/farm/uebernahme/Breiten.h"

#include "core/farm/Artikelarten.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool istArtikeltabelle(const QString& tabelle)
{
    return std::ranges::any_of(artikelarten(), [&](const Artikelart& art) {
        return art.tabelle.compare(tabelle, Qt::CaseInsensitive) == 0;
    });
}

/// What a column holds, wherever it stands.
QString begriff(Dateiart art, const QString& tabelle, const QString& spalte)
{
    QString name = spalte.toUpper();
    if (art == Dateiart::Lager && name == u"LAGERORTKURZKU") return u"Lagerort"_s;
    if (art == Dateiart::Lager && name == u"UBERSTALLT_ALT") return u"Partner"_s;
    if (art == Dateiart::Anlagen && name == u"KURZKU") return u"Lagerort"_s;
    if (art == Dateiart::Grundstamm && name == u"KURZKU") return u"Partner"_s;
    const bool artikel = art == Dateiart::Grundstamm && istArtikeltabelle(tabelle);
    if (artikel && name == u"NAME") return u"ARTIKEL"_s;
    if (artikel || art == Dateiart::Lager) return name;
    return QString::number(int(art)) + tabelle.toUpper() + u'.' + name;
}

} // namespace

void Breiten::braucht(Dateiart art, const QString& tabelle, const QString& spalte, int zeichen)
{
    int& bisher = m_zeichen[begriff(art, tabelle, spalte)];
    bisher = std::max(bisher, zeichen);
}

int Breiten::breite(Dateiart art, const QString& tabelle, const QString& spalte) const
{
    return m_zeichen.value(begriff(art, tabelle, spalte));
}

QStringList Breiten::anweisungen(jet::Database& datei, Dateiart art) const
{
    QStringList alle;
    for (const jet::TableDef& tabelle : datei.TableDefs())
        for (const jet::Field& feld : tabelle.fields)
            if (const int zeichen = breite(art, tabelle.name, feld.name);
                feld.type == jet::Type::Text && zeichen > feld.size)
                alle.append(u"ALTER TABLE [%1] ALTER COLUMN [%2] TEXT(%3)"_s.arg(tabelle.name, feld.name)
                                .arg(zeichen));
    return alle;
}

void Breiten::passeAn(jet::Database& datei, Dateiart art) const
{
    for (const QString& anweisung : anweisungen(datei, art))
        datei.Execute(anweisung);
}

bool Breiten::passt(jet::Database& datei, Dateiart art) const
{
    return anweisungen(datei, art).isEmpty();
}
