#include "host/demo/Stammdaten.h"

#include "core/farm/Artikelarten.h"
#include "core/farm/Dateien.h"
#include "host/demo/Tabelle.h"

#include <QDate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<jet::Recordset> alle(jet::Database& datei, QStringView tabelle)
{
    return datei.OpenRecordset(tabelle.toString());
}

void schreibeArtikel(jet::Database& grundstamm, const Artikelart& art, const Sortiment& sortiment)
{
    const auto zeilen = alle(grundstamm, art.tabelle);
    for (const Ware& ware : sortiment.waren()) {
        if (ware.artikelart != art.name) continue;
        zeilen->AddNew();
        zeilen->Set(u"NAME", ware.name);
        zeilen->Set(u"Einheit", ware.einheit);
        zeilen->Set(u"Preis", double(ware.preis) / 100);
        zeilen->Set(u"Preisfaktor", ware.preisfaktor);
        zeilen->Set(u"Untergruppe", ware.untergruppe);
        zeilen->Set(u"Sperre", ware.gesperrt);
        zeilen->Update();
    }
}

/// Texts of a row that go into columns of the same name; a missing text stays NULL.
void setzeTexte(jet::Recordset& zeilen, const QHash<QString, QString>& zeile, const QStringList& spalten)
{
    for (const QString& spalte : spalten) {
        if (!zeile[spalte].isEmpty()) zeilen.Set(spalte, zeile[spalte]);
    }
}

void schreibePartner(jet::Database& grundstamm)
{
    const auto zeilen = alle(grundstamm, u"HANDLER");
    for (const auto& zeile : tabelle(u"partner"_s)) {
        zeilen->AddNew();
        setzeTexte(*zeilen, zeile, {u"KurzKu"_s, u"Name"_s, u"Vorname"_s, u"Strasse"_s, u"PLZ"_s, u"Ort"_s});
        zeilen->Set(u"SPERRE", istJa(zeile[u"Sperre"_s]));
        zeilen->Update();
    }
}

void schreibeObjekte(jet::Database& anlagen)
{
    const auto zeilen = alle(anlagen, u"Objekte");
    for (const auto& zeile : tabelle(u"objekte"_s)) {
        zeilen->AddNew();
        setzeTexte(*zeilen, zeile, {u"Name"_s, u"KurzKu"_s, u"Objektart"_s});
        zeilen->Set(u"Anzeigen", istJa(zeile[u"Anzeigen"_s]));
        zeilen->Update();
    }
}

} // namespace

void fuelleStammdaten(const Installation& ort, const Sortiment& sortiment)
{
    const auto grundstamm = oeffne(Dateiart::Grundstamm, grundstammdatei(ort.daten()));
    grundstamm->BeginTrans();
    for (const Artikelart& art : artikelarten())
        schreibeArtikel(*grundstamm, art, sortiment);
    schreibePartner(*grundstamm);
    grundstamm->Close();

    const auto anlagen = oeffne(Dateiart::Anlagen, anlagendatei(ort.anlagen()));
    anlagen->BeginTrans();
    schreibeObjekte(*anlagen);
    anlagen->Close();
}

void fuelleJahresstammdaten(const Installation& ort, int jahr)
{
    const auto datei = oeffne(Dateiart::ZABStammdaten, stammdatei(ort.programm(), QString::number(jahr)));
    datei->BeginTrans();
    const auto produkte = alle(*datei, u"PFLANZENSCHUTZMITTEL");
    for (const auto& zeile : tabelle(u"produkte"_s)) {
        produkte->AddNew();
        setzeTexte(*produkte, zeile, {u"Name"_s, u"Gruppe"_s, u"Giftig"_s, u"Regnr"_s});
        produkte->Update();
    }
    const auto eintraege = alle(*datei, u"REGISTER");
    for (const auto& zeile : tabelle(u"register"_s)) {
        eintraege->AddNew();
        setzeTexte(*eintraege, zeile, {u"Regnr"_s, u"RegNrAlt"_s, u"Bezeichnung"_s});
        if (const QString frist = zeile[u"Aufbrauchsfrist"_s]; !frist.isEmpty()) {
            const int fristjahr = jahr + zeile[u"Jahre"_s].toInt();
            eintraege->Set(u"Aufbrauchsfrist",
                           QDate::fromString(frist + QString::number(fristjahr), u"dd.MM.yyyy"_s));
        }
        eintraege->Update();
    }
    datei->Close();
}
