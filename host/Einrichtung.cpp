#include "host/Einrichtung.h"

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

/// The statements of a schema; each ends with a semicolon at the end of a line.
QStringList anweisungen(const QString& schema)
{
    QFile quelle(u":/schema/"_s + schema + u".sql"_s);
    const bool geoeffnet = quelle.open(QIODevice::ReadOnly);
    Q_ASSERT(geoeffnet);
    return QString::fromUtf8(quelle.readAll()).split(u";\n"_s, Qt::SkipEmptyParts);
}

/// Built under a name of its own: an interrupted run leaves no half database that the next one would take for whole, and
/// two runs at once do not disturb each other.
void legeDatenbankAn(const QString& datei, const QString& schema, const QString& kennwort)
{
    if (sys::Exist(datei)) return;
    const QString entwurf = sys::draftName(datei);
    const QString sortierung = u";LANGID=0x0409;CP=1252;COUNTRY=0"_s;
    const auto raeumeAuf = qScopeGuard([&] { QFile::remove(entwurf); });
    try {
        const auto datenbank =
            jet::engine().CreateDatabase(entwurf, kennwort.isEmpty() ? sortierung : sortierung + u";pwd="_s + kennwort);
        datenbank->BeginTrans();
        for (const QString& anweisung : anweisungen(schema))
            datenbank->Execute(anweisung);
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
    throw sys::FileError(sys::FileErrorNumber::PathAccess,
                         u"Das Verzeichnis '"_s + QDir::toNativeSeparators(pfad) + u"' lässt sich nicht anlegen."_s);
}

void legeBerichtsformulareAn(const Installation& ort)
{
    ergaenzeDateien(u":/report"_s, ort.formulare());
    ergaenzeDateien(u":/report/Lieferscheine"_s, ort.lieferscheinformulare());
}

void richteEin(const Installation& ort, const QString& Betriebsnummer, int jahr)
{
    for (const QString& pfad : {ort.programm(), ort.anlagen(), ort.einstellungen(), ort.betriebsordner(Betriebsnummer)})
        legeVerzeichnisAn(pfad);
    const QString vorlage = ort.programm() + u"/Lager.vorlage"_s;
    const QString stammdaten = ort.programm() + u"/ZABStammdaten_"_s + QString::number(jahr) + u".mdb"_s;
    legeDatenbankAn(vorlage, u"Lager"_s, {}); // stock questions open year files without a password
    legeDatenbankAn(ort.daten() + u"/Grundstamm.mdb"_s, u"Grundstamm"_s, u"RT-58KX"_s);
    legeDatenbankAn(ort.anlagen() + u"/Anlagen.mdb"_s, u"Anlagen"_s, u"volmira"_s);
    legeDatenbankAn(stammdaten, u"ZABStammdaten"_s, u"RT-58KX"_s);
    legeBerichtsformulareAn(ort);

    jet::copyWhereMissing(vorlage, {}, ort.journaldatei(Betriebsnummer, jahr));
    ort.verwende();
}
