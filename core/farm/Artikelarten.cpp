#include "core/farm/Artikelarten.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// clang-format off
constexpr Artikelart Artikel[] = {
    {u"Zwischenfruchtsaatgut",   u"Zwischenfruechte",     u"  ORDER by NAME ASC"},
    {u"Saatgut/Sorten",          u"Saatgut",              u" ORDER by NAME ASC"},
    {u"Handelsdünger",           u"Dungermittel",         u" ORDER by NAME ASC"},
    {u"Wirtschaftsdünger",       u"WIRTDUNG",             u" ORDER by NAME ASC"},
    {Pflanzenschutzmittel,       u"Pflanzenschutzmittel", u" ORDER by NAME ASC"},
    {u"Futtermittel",            u"Futtermittel",         u" ORDER by NAME ASC"},
    {u"Treib- und Brennstoffe",  u"Treibstoffe",          u" ORDER by NAME ASC"},
    {u"Sonstige Artikel",        u"SonstigeArtikel",      u" ORDER by NAME ASC"},
    {u"Gesundheitsmittel",       u"Arzneimittel",         u" ORDER by NAME ASC"},
    {PflanzlicheErzeugnisse,     u"Kulturen",             u" ORDER by NAME ASC"},
};
// clang-format on

} // namespace

QString Artikelart::abfrage() const
{
    return u"SELECT * FROM "_s + tabelle.toString() + u" WHERE Sperre=False "_s;
}

std::span<const Artikelart> artikelarten()
{
    return Artikel;
}

const Artikelart* artikelartZu(QStringView name)
{
    const auto* const gefunden = std::find_if(std::begin(Artikel), std::end(Artikel),
                                              [&](const Artikelart& art) { return art.name == name; });
    return gefunden == std::end(Artikel) ? nullptr : gefunden;
}
