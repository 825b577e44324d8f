#include "core/farm/Dateien.h"

#include "core/farm/Schema.h"
#include "platform/jet/Engine.h"
#include "platform/jet/TemplateCopy.h"
#include "platform/system/Files.h"

#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

QString betriebsordner(const QString& datenverzeichnis, const QString& betriebsnummer)
{
    return datenverzeichnis + u"\\B"_s + betriebsnummer;
}

QString journaldatei(const QString& betriebsordner, int jahr)
{
    return betriebsordner + u"\\Lager."_s + QString::number(jahr).rightJustified(4, u'0');
}

QString vorlagedatei(const QString& programmverzeichnis)
{
    return programmverzeichnis + u"\\Lager.vorlage"_s;
}

QString grundstammdatei(const QString& datenverzeichnis)
{
    return datenverzeichnis + u"\\Grundstamm.mdb"_s;
}

QString anlagendatei(const QString& anlagenverzeichnis)
{
    return anlagenverzeichnis + u"\\Anlagen.mdb"_s;
}

QString stammdatei(const QString& programmverzeichnis, const QString& jahr)
{
    return programmverzeichnis + u"\\ZABStammdaten_"_s + jahr + u".mdb"_s;
}

QString kennwort(Dateiart art)
{
    switch (art) {
    case Dateiart::Lager: return {};
    case Dateiart::Anlagen: return u"volmira"_s;
    case Dateiart::Grundstamm:
    case Dateiart::ZABStammdaten: return u"RT-58KX"_s;
    }
    Q_UNREACHABLE();
}

QString verbindung(Dateiart art)
{
    return u";pwd="_s + (art == Dateiart::Lager ? u"quenlor"_s : kennwort(art));
}

QString verknuepfung(Dateiart art, const QString& datei)
{
    return u"Ms Access"_s + verbindung(art) + u";DATABASE="_s + datei;
}

std::unique_ptr<jet::Database> oeffne(Dateiart art, const QString& datei)
{
    return oeffne(art, datei, verbindung(art));
}

std::unique_ptr<jet::Database> oeffne(Dateiart art, const QString& datei, const QString& verbindung)
{
    auto geoeffnet = jet::engine().OpenDatabase(datei, verbindung);
    verweigereNeuere(*geoeffnet, art);
    return geoeffnet;
}

std::unique_ptr<jet::Database> oeffneFuerBestand(const QString& datei)
{
    return oeffne(Dateiart::Lager, datei, {});
}

std::unique_ptr<jet::Database> erzeuge(Dateiart art, const QString& datei)
{
    return jet::engine().CreateDatabase(datei, u";LANGID=0x0409;CP=1252;COUNTRY=0;pwd="_s + kennwort(art));
}

void legeAn(Dateiart art, const QString& datei)
{
    if (sys::Exist(datei)) return;
    const QString entwurf = sys::draftName(datei);
    const auto raeumeAuf = qScopeGuard([&] { QFile::remove(entwurf); });
    try {
        const auto datenbank = erzeuge(art, entwurf);
        legeTabellenAn(*datenbank, art);
        datenbank->Close();
    } catch (const jet::Error& fehler) { // the user knows the file, not its draft
        throw jet::Error(fehler.number(), QString(fehler.text()).replace(entwurf, datei));
    }
    sys::CopyWhereMissing(entwurf, datei);
}

void kopiereVorlage(const QString& vorlage, const QString& verbindung, const QString& journal)
{
    if (sys::Exist(journal)) return;
    verweigereNeuere(Dateiart::Lager, vorlage, verbindung);
    jet::copyWhereMissing(vorlage, verbindung, journal);
}
