#include "overview/jahresliste/Jahresblatt.h"

#include "platform/jet/TextOrder.h"

#include <span>

using namespace Qt::StringLiterals;

namespace {

using Werte = std::vector<jet::Value>;
using Formeln = std::vector<QString>;

const QString Menge = u"##,##0.00##"_s;
const QString Betrag = u"##,##0.00"_s;
constexpr int ErsteZeile = 2; // of the sheet, below the captions

/// Where the columns of the sheet stand behind those of the kinds of bookings.
struct Platz {
    qsizetype endbestand = 4 + jahresarten().size();
    qsizetype preis = endbestand + 1;
    qsizetype wert = preis + 1;
};

QString buchstabe(qsizetype spalte)
{
    return QChar(u'A' + static_cast<char16_t>(spalte));
}

jet::Value ohneNull(double menge)
{
    return menge == 0 ? jet::Value() : jet::Value(menge);
}

Werte werte(const Jahreszeile& zeile)
{
    Werte werte{zeile.Artikelart, zeile.Artikel, zeile.LagerortKurzKu, zeile.Einheit};
    for (const double menge : zeile.jeBuchungsart)
        werte.push_back(ohneNull(menge));
    werte.push_back(zeile.Endbestand);
    werte.push_back(zeile.Preis ? jet::Value(*zeile.Preis) : jet::Value());
    werte.push_back(zeile.Preis ? jet::Value(*zeile.Wert()) : jet::Value());
    return werte;
}

/// The sheet in the making.
struct Blatt {
    std::vector<Werte> zeilen;
    std::vector<Formeln> formeln;

    int naechste() const { return ErsteZeile + static_cast<int>(zeilen.size()); }

    void nimm(Werte zeile, const QString& wertformel)
    {
        Formeln leere(zeile.size());
        leere[static_cast<std::size_t>(Platz().wert)] = wertformel;
        zeilen.push_back(std::move(zeile));
        formeln.push_back(std::move(leere));
    }

    void nimm(const Jahreszeile& zeile)
    {
        const QString nummer = QString::number(naechste());
        nimm(werte(zeile), !zeile.Preis ? QString()
                                        : u"ROUND("_s + buchstabe(Platz().endbestand) + nummer + u'*' +
                                              buchstabe(Platz().preis) + nummer + u",2)"_s);
    }

    /// SUBTOTAL leaves other sums out.
    void nimmSumme(const QString& titel, const std::vector<Jahreszeile>& ueber, int von)
    {
        const Jahressumme alle = summe(ueber);
        Werte zeile(static_cast<std::size_t>(Platz().wert) + 1);
        zeile[0] = titel.trimmed();
        zeile[1] = ohnePreisText(alle);
        zeile.back() = alle.Wert;
        const QString spalte = buchstabe(Platz().wert);
        nimm(std::move(zeile), u"SUBTOTAL(9,%1%2:%1%3)"_s.arg(spalte).arg(von).arg(naechste() - 1));
    }
};

std::vector<SheetColumn> spalten()
{
    std::vector<SheetColumn> spalten{
        {u"Artikelgruppe"_s, {}}, {u"Artikel"_s, {}}, {u"Lagerort"_s, {}}, {u"Einheit"_s, {}}};
    for (const QString& art : jahresarten())
        spalten.push_back({art, Menge, Qt::AlignRight});
    spalten.push_back({u"Endbestand"_s, Menge, Qt::AlignRight});
    spalten.push_back({u"Preis"_s, Menge, Qt::AlignRight});
    spalten.push_back({u"Wert"_s, Betrag, Qt::AlignRight});
    return spalten;
}

} // namespace

QString ohnePreisText(const Jahressumme& summe)
{
    if (summe.ohnePreis == 0) return {};
    return QString::number(summe.ohnePreis) + (summe.ohnePreis == 1 ? u" Zeile"_s : u" Zeilen"_s) +
           u" ohne Preis"_s;
}

SheetRows jahresblatt(const std::vector<Jahreszeile>& zeilen)
{
    Blatt blatt;
    for (auto von = zeilen.begin(); von != zeilen.end();) {
        const auto bis = std::find_if(von, zeilen.end(), [&](const Jahreszeile& zeile) {
            return jet::compareTexts(zeile.Artikelart, von->Artikelart) != 0;
        });
        const int erste = blatt.naechste();
        for (const Jahreszeile& zeile : std::span(von, bis))
            blatt.nimm(zeile);
        blatt.nimmSumme(u"Summe "_s + von->Artikelart, {von, bis}, erste);
        von = bis;
    }
    if (!zeilen.empty()) blatt.nimmSumme(u"Gesamt"_s, zeilen, ErsteZeile);
    const auto lies = [alle = blatt.zeilen](int erste, int anzahl) {
        return std::vector<Werte>(alle.begin() + erste, alle.begin() + erste + anzahl);
    };
    return {spalten(), std::ssize(blatt.zeilen), lies,
            [formeln = blatt.formeln](int zeile) { return formeln[static_cast<std::size_t>(zeile)]; }};
}

Listenpapier::Auftrag jahrespapier(const std::vector<Jahreszeile>& zeilen, int jahr)
{
    Listenpapier::Auftrag auftrag{.formular = u"Jahresliste.rpt"_s,
                                  .titel = u"Jahresliste "_s + QString::number(jahr),
                                  .tabelle = u"JAHRESLISTE"_s,
                                  .spalten = {{u"Artikelart"_s, u"Text(25)"_s},
                                              {u"Artikel"_s, u"Text(50)"_s},
                                              {u"LagerortKurzKu"_s, u"Text(15)"_s},
                                              {u"Einheit"_s, u"Text(15)"_s}},
                                  .zeilen = {},
                                  .formeln = {{u"Jahr"_s, QString::number(jahr)}}};
    for (const QString& art : jahresarten())
        auftrag.spalten.emplace_back(art, u"Double"_s);
    for (const auto& zahl : {u"Endbestand"_s, u"Preis"_s, u"Wert"_s})
        auftrag.spalten.emplace_back(zahl, u"Double"_s);
    auftrag.spalten.emplace_back(u"OhnePreis"_s, u"Long"_s);
    for (const Jahreszeile& zeile : zeilen) {
        auftrag.zeilen.push_back(werte(zeile));
        auftrag.zeilen.back().emplace_back(zeile.Preis ? 0 : 1);
    }
    return auftrag;
}
