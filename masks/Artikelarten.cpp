#include "masks/Artikelarten.h"

#include <algorithm>

namespace {

// clang-format off
constexpr Artikelart Arten[] = {
    {u"Zwischenfruchtsaatgut",   u"SELECT * FROM Zwischenfruechte WHERE Sperre=False ",     u"  ORDER by NAME ASC"},
    {u"Saatgut/Sorten",          u"SELECT * FROM Saatgut WHERE Sperre=False ",              u" ORDER by NAME ASC"},
    {u"Handelsdünger",           u"SELECT * FROM Dungermittel WHERE Sperre=False ",         u" ORDER by NAME ASC"},
    {u"Wirtschaftsdünger",       u"SELECT * FROM WIRTDUNG WHERE Sperre=False ",             u" ORDER by NAME ASC"},
    {u"Pflanzenschutzmittel",    u"SELECT * FROM Pflanzenschutzmittel WHERE Sperre=False ", u" ORDER by NAME ASC"},
    {u"Futtermittel",            u"SELECT * FROM Futtermittel WHERE Sperre=False ",         u" ORDER by NAME ASC"},
    {u"Treib- und Brennstoffe",  u"SELECT * FROM Treibstoffe WHERE Sperre=False ",          u" ORDER by NAME ASC"},
    {u"Sonstige Artikel",        u"SELECT * FROM SonstigeArtikel WHERE Sperre=False ",      u" ORDER by NAME ASC"},
    {u"Gesundheitsmittel",       u"SELECT * FROM Arzneimittel WHERE Sperre=False ",         u" ORDER by NAME ASC"},
    {PflanzlicheErzeugnisse,     u"SELECT * FROM Kulturen WHERE Sperre=False ",             u" ORDER by NAME ASC"},
};
// clang-format on

} // namespace

std::span<const Artikelart> artikelarten()
{
    return Arten;
}

const Artikelart* artikelartZu(QStringView name)
{
    const auto* const gefunden =
        std::find_if(std::begin(Arten), std::end(Arten), [&](const Artikelart& art) { return art.name == name; });
    return gefunden == std::end(Arten) ? nullptr : gefunden;
}
