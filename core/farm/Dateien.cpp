#include "core/farm/Dateien.h"

#include "core/farm/Schema.h"
#include "platform/jet/Engine.h"

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
    auto geoeffnet = jet::engine().OpenDatabase(datei, verbindung(art));
    verweigereNeuere(*geoeffnet, art);
    return geoeffnet;
}

std::unique_ptr<jet::Database> oeffneFuerBestand(const QString& datei)
{
    auto geoeffnet = jet::engine().OpenDatabase(datei);
    verweigereNeuere(*geoeffnet, Dateiart::Lager);
    return geoeffnet;
}
