#include "host/Einrichtung.h"

#include "core/farm/Dateien.h"
#include "core/farm/Schema.h"
#include "core/farm/stammdaten/Einlesung.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// Copies the files of a folder that are missing in another one.
void ergaenzeDateien(const QString& von, const QString& nach)
{
    legeVerzeichnisAn(nach);
    for (const QString& datei : QDir(von).entryList(QDir::Files))
        sys::CopyWhereMissing(von + u'/' + datei, nach + u'/' + datei);
}

bool istLeer(const Stammtabelle& tabelle, jet::Database& datei)
{
    return stammwerte(tabelle, datei).empty();
}

void liesBeispiel(const Stammtabelle& tabelle, jet::Database& datei)
{
    QFile quelle(u":/beispiel/"_s + tabelle.name + u".csv"_s);
    const bool geoeffnet = quelle.open(QIODevice::ReadOnly);
    Q_ASSERT(geoeffnet);
    datei.BeginTrans();
    liesEin(liesCsv(quelle.readAll()), tabelle, datei);
    datei.CommitTrans();
}

} // namespace

bool fuelleMitBeispiel(const Installation& ort)
{
    const Stammtabelle& orte = stammtabelleNamens(u"Lagerorte"_s);
    const Stammtabelle& artikel = stammtabelleNamens(u"Artikel"_s);
    const auto anlagen = oeffne(Dateiart::Anlagen, anlagendatei(ort.anlagen()));
    const auto grundstamm = oeffne(Dateiart::Grundstamm, grundstammdatei(ort.daten()));
    if (!istLeer(orte, *anlagen) || !istLeer(artikel, *grundstamm)) return false;
    liesBeispiel(orte, *anlagen);
    liesBeispiel(artikel, *grundstamm);
    return true;
}

void legeVerzeichnisAn(const QString& pfad)
{
    if (QDir().mkpath(pfad)) return;
    throw sys::FileError(sys::FileErrorNumber::PathAccess, u"Das Verzeichnis '"_s +
                                                               QDir::toNativeSeparators(pfad) +
                                                               u"' lässt sich nicht anlegen."_s);
}

void legeBerichtsformulareAn(const Installation& ort)
{
    ergaenzeDateien(u":/report"_s, ort.formulare());
    ergaenzeDateien(u":/report/Lieferscheine"_s, ort.lieferscheinformulare());
}

void bringeVorlageAufStand(const Installation& ort)
{
    const QString vorlage = vorlagedatei(ort.programm());
    if (sys::Exist(vorlage))
        bringeAufStandWennMoeglich(Dateiart::Lager, vorlage, verbindung(Dateiart::Lager));
}

void legeOrdnerUndVorlageAn(const Installation& ort, const QString& Betriebsnummer)
{
    for (const QString& pfad :
         {ort.programm(), ort.anlagen(), ort.einstellungen(), ort.betriebsordner(Betriebsnummer)})
        legeVerzeichnisAn(pfad);
    legeAn(Dateiart::Lager, sys::localPath(vorlagedatei(ort.programm())));
}

void richteEin(const Installation& ort, const QString& Betriebsnummer, std::optional<int> jahr)
{
    legeOrdnerUndVorlageAn(ort, Betriebsnummer);
    legeAn(Dateiart::Grundstamm, sys::localPath(grundstammdatei(ort.daten())));
    legeAn(Dateiart::Anlagen, sys::localPath(anlagendatei(ort.anlagen())));
    legeBerichtsformulareAn(ort);
    bringeVorlageAufStand(ort);
    if (jahr) {
        legeAn(Dateiart::ZABStammdaten, sys::localPath(stammdatei(ort.programm(), QString::number(*jahr))));
        kopiereVorlage(sys::localPath(vorlagedatei(ort.programm())), verbindung(Dateiart::Lager),
                       ort.journaldatei(Betriebsnummer, *jahr));
    }
    ort.verwende();
}
