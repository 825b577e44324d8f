#include "host/Einrichtung.h"

#include "core/farm/Dateien.h"
#include "core/farm/Schema.h"
#include "platform/jet/Engine.h"
#include "platform/jet/TemplateCopy.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// Built under a name of its own: an interrupted run leaves no half database that the next one would take for
/// whole, and two runs at once do not disturb each other.
void legeDatenbankAn(Dateiart art, const QString& datei)
{
    if (sys::Exist(datei)) return;
    const QString entwurf = sys::draftName(datei);
    const auto raeumeAuf = qScopeGuard([&] { QFile::remove(entwurf); });
    try {
        const auto datenbank =
            jet::engine().CreateDatabase(entwurf, u";LANGID=0x0409;CP=1252;COUNTRY=0;pwd="_s + kennwort(art));
        legeTabellenAn(*datenbank, art);
        datenbank->Close();
    } catch (const jet::Error& fehler) { // the user knows the file, not its draft
        throw jet::Error(fehler.number(), QString(fehler.text()).replace(entwurf, datei));
    }
    sys::CopyWhereMissing(entwurf, datei);
}

/// Copies the files of a folder that are missing in another one.
void ergaenzeDateien(const QString& von, const QString& nach)
{
    legeVerzeichnisAn(nach);
    for (const QString& datei : QDir(von).entryList(QDir::Files))
        sys::CopyWhereMissing(von + u'/' + datei, nach + u'/' + datei);
}

} // namespace

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

void richteEin(const Installation& ort, const QString& Betriebsnummer, int jahr)
{
    for (const QString& pfad :
         {ort.programm(), ort.anlagen(), ort.einstellungen(), ort.betriebsordner(Betriebsnummer)})
        legeVerzeichnisAn(pfad);
    const QString vorlage = sys::localPath(vorlagedatei(ort.programm()));
    legeDatenbankAn(Dateiart::Lager, vorlage);
    legeDatenbankAn(Dateiart::Grundstamm, sys::localPath(grundstammdatei(ort.daten())));
    legeDatenbankAn(Dateiart::Anlagen, sys::localPath(anlagendatei(ort.anlagen())));
    legeDatenbankAn(Dateiart::ZABStammdaten,
                    sys::localPath(stammdatei(ort.programm(), QString::number(jahr))));
    legeBerichtsformulareAn(ort);

    bringeVorlageAufStand(ort);
    jet::copyWhereMissing(vorlage, {}, ort.journaldatei(Betriebsnummer, jahr));
    ort.verwende();
}
