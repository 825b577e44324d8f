#include "host/Stammdatenausgabe.h"

#include "core/farm/Jahresdateien.h"
#include "core/farm/stammdaten/Csv.h"
#include "core/farm/stammdaten/Stammtabelle.h"
#include "host/Ausgabe.h"
#include "host/Einrichtung.h"
#include "platform/sheet/Spreadsheet.h"
#include "platform/system/Settings.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QSaveFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Werte = std::vector<std::vector<jet::Value>>;

/// A file of the folder, a sheet of the workbook.
struct Blatt {
    QString name;
    QStringList titel;
    Werte zeilen;
};

QString datei(const Installation& ort, Dateiart art, const QString& jahr)
{
    switch (art) {
    case Dateiart::Anlagen: return anlagendatei(ort.anlagen());
    case Dateiart::ZABStammdaten: return stammdatei(ort.programm(), jahr);
    default: return grundstammdatei(ort.daten());
    }
}

Blatt betriebsblatt(const QStringList& betriebe)
{
    Blatt blatt{Betriebstabelle, Betriebstitel, {}};
    for (const QString& nummer : betriebe) {
        const QString abschnitt = u"Betrieb "_s + nummer;
        blatt.zeilen.push_back(
            {nummer, sys::GetSetting(abschnitt, u"Name"_s), sys::GetSetting(abschnitt, u"Adresse"_s)});
    }
    return blatt;
}

std::vector<Blatt> blaetter(const Stammdatenauftrag& auftrag)
{
    std::vector<Blatt> alle;
    const auto gefragt = [&](const QString& name) {
        return auftrag.tabelle.isEmpty() || auftrag.tabelle.compare(name, Qt::CaseInsensitive) == 0;
    };
    for (const Stammtabelle& tabelle : stammtabellen()) {
        if (!gefragt(tabelle.name)) continue;
        std::vector<int> jahre{0};
        if (tabelle.art == Dateiart::ZABStammdaten)
            jahre = auftrag.jahr ? std::vector{*auftrag.jahr} : registerjahre(auftrag.ort.programm());
        for (const int jahr : jahre) {
            const QString text = QString::number(jahr);
            const auto quelle = oeffne(tabelle.art, datei(auftrag.ort, tabelle.art, text));
            alle.push_back({jahr == 0 ? tabelle.name : tabelle.name + u'-' + text, tabelle.titel(),
                            stammwerte(tabelle, *quelle)});
        }
    }
    if (gefragt(Betriebstabelle)) alle.push_back(betriebsblatt(auftrag.betriebe));
    if (alle.empty()) stammtabelleNamens(auftrag.tabelle); // tells which there are
    return alle;
}

void schreibeCsv(const Blatt& blatt, const QString& pfad)
{
    std::vector<QStringList> zeilen;
    for (const auto& werte : blatt.zeilen) {
        QStringList& zellen = zeilen.emplace_back();
        for (const jet::Value& wert : werte)
            zellen.append(zelltext(wert));
    }
    QSaveFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly) || datei.write(alsCsv(blatt.titel, zeilen)) < 0 || !datei.commit())
        throw sys::FileError(sys::FileErrorNumber::PathAccess,
                             u"'"_s + pfad + u"' lässt sich nicht schreiben: "_s + datei.errorString());
}

void schreibeMappe(const std::vector<Blatt>& alle, const QString& pfad)
{
    std::unique_ptr<Spreadsheet> mappe;
    for (const Blatt& blatt : alle) {
        std::vector<SheetColumn> spalten;
        for (const QString& titel : blatt.titel)
            spalten.push_back(
                {.caption = titel, .numberFormat = titel == u"Preis" ? u"##,##0.00##"_s : QString()});
        if (mappe)
            mappe->addSheet(blatt.name, spalten);
        else
            mappe = std::make_unique<Spreadsheet>(pfad, blatt.name, spalten);
        for (std::vector<jet::Value> zeile : blatt.zeilen) {
            if (zeile.back().type() == jet::Type::Boolean) zeile.back() = zelltext(zeile.back());
            mappe->addRow(zeile);
        }
    }
    mappe->finish([] {});
}

} // namespace

void gibStammdatenAus(const Stammdatenauftrag& auftrag, bool mitMappe)
{
    const auto alle = blaetter(auftrag);
    legeVerzeichnisAn(auftrag.pfad);
    const QDir ordner(auftrag.pfad);
    for (const Blatt& blatt : alle) {
        const QString pfad = ordner.filePath(blatt.name + u".csv"_s);
        schreibeCsv(blatt, pfad);
        schreibe(stdout, pfad + u": %1 Zeilen"_s.arg(blatt.zeilen.size()));
    }
    if (mitMappe) schreibeMappe(alle, ordner.filePath(u"Stammdaten.xlsx"_s));
}
