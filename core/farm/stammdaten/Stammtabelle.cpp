#include "core/farm/stammdaten/Stammtabelle.h"

#include "platform/jet/TextOrder.h"

#include <zablager/DatabaseError.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Stammtabelle alleArtikel()
{
    Stammtabelle tabelle{
        .name = u"Artikel"_s, .art = Dateiart::Grundstamm, .teiltitel = u"Artikelart"_s, .teile = {}};
    for (const Artikelart& art : artikelarten()) {
        tabelle.teilnamen.append(art.name.toString());
        tabelle.teile.push_back(artikel(art));
    }
    return tabelle;
}

Stammtabelle eine(const QString& name, const Stammliste& liste)
{
    return {.name = name, .art = liste.art, .teiltitel = {}, .teile = {liste}};
}

bool enthaelt(const QStringList& alle, const QString& einen)
{
    return std::ranges::any_of(
        alle, [&](const QString& anderer) { return jet::compareTexts(einen, anderer) == 0; });
}

QString alleNamen()
{
    QStringList namen;
    for (const Stammtabelle& tabelle : stammtabellen())
        namen.append(tabelle.name + u" ("_s + tabelle.titel().join(u", "_s) + u')');
    return namen.join(u"; "_s);
}

} // namespace

QStringList Stammtabelle::titel() const
{
    QStringList alle;
    if (!teiltitel.isEmpty()) alle.append(teiltitel);
    for (const auto& spalte : teile.front().spalten)
        alle.append(spalte.titel);
    if (!teile.front().sperre.isEmpty()) alle.append(Sperrtitel);
    return alle;
}

const std::vector<Stammtabelle>& stammtabellen()
{
    static const std::vector<Stammtabelle> alle{
        eine(u"Lagerorte"_s, lagerorte()), alleArtikel(), eine(u"Geschaeftspartner"_s, geschaeftspartner()),
        eine(u"Mittel"_s, registermittel()), eine(u"Register"_s, registereintraege())};
    return alle;
}

/// The titles of one table can be among those of another: what has all of them is meant, or the only one
/// that has them.
const Stammtabelle& stammtabelleMit(const QStringList& titel)
{
    QStringList passende;
    const Stammtabelle* gefunden = nullptr;
    for (const Stammtabelle& tabelle : stammtabellen()) {
        const QStringList ihre = tabelle.titel();
        const bool hatTeile = tabelle.teiltitel.isEmpty() || enthaelt(titel, tabelle.teiltitel);
        if (!hatTeile ||
            !std::ranges::all_of(titel, [&](const auto& einer) { return enthaelt(ihre, einer); }))
            continue;
        if (titel.size() == ihre.size()) return tabelle;
        passende.append(tabelle.name);
        gefunden = &tabelle;
    }
    if (passende.size() == 1) return *gefunden;
    throw jet::Error(jet::ErrorNumber::InvalidArgument,
                     u"Die Titel '"_s + titel.join(u", "_s) +
                         (passende.isEmpty() ? u"' sind die keiner Tabelle. Es gibt: "_s + alleNamen()
                                             : u"' passen zu "_s + passende.join(u" und "_s) +
                                                   u"; --tabelle sagt, welche gemeint ist."_s));
}

const Stammtabelle& stammtabelleNamens(const QString& name)
{
    for (const Stammtabelle& tabelle : stammtabellen())
        if (tabelle.name.compare(name, Qt::CaseInsensitive) == 0) return tabelle;
    throw jet::Error(jet::ErrorNumber::InvalidArgument,
                     u"Eine Tabelle '"_s + name + u"' gibt es nicht. Es gibt: "_s + alleNamen());
}

QString zelltext(const jet::Value& wert)
{
    return wert.type() == jet::Type::Boolean ? (wert.toBool() ? u"Ja"_s : u"Nein"_s) : wert.toText();
}

std::vector<std::vector<jet::Value>> stammwerte(const Stammtabelle& tabelle, jet::Database& datei)
{
    std::vector<std::vector<jet::Value>> alle;
    for (std::size_t teil = 0; teil < tabelle.teile.size(); ++teil) {
        const Stammliste& liste = tabelle.teile[teil];
        const auto zeilen =
            datei.OpenRecordset(u"SELECT * FROM "_s + liste.tabelle + liste.auswahl, jet::Kind::Snapshot);
        for (; !zeilen->Eof(); zeilen->MoveNext()) {
            std::vector<jet::Value>& werte = alle.emplace_back();
            if (!tabelle.teiltitel.isEmpty()) werte.emplace_back(tabelle.teilnamen[qsizetype(teil)]);
            for (const auto& spalte : liste.spalten)
                werte.push_back(zeilen->PlaceOf(spalte.feld) ? (*zeilen)[spalte.feld] : jet::Value());
            if (!liste.sperre.isEmpty())
                werte.emplace_back((*zeilen)[liste.sperre].toBool() == liste.gesperrt);
        }
    }
    return alle;
}
