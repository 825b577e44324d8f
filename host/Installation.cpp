#include "host/Installation.h"

#include "core/farm/Betriebe.h"
#include "core/farm/Jahresdateien.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Settings.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

void setze(const QString& abschnitt, const QString& wert)
{
    if (sys::GetSetting(abschnitt, u"Verzeichnisname"_s) == wert) return; // asking for a stock writes nothing
    sys::SaveSetting(abschnitt, u"Verzeichnisname"_s, wert);
}

} // namespace

Installation::Installation(const QString& verzeichnis)
    : m_verzeichnis(QDir::cleanPath(QDir(verzeichnis).absolutePath()))
{
    // An empty name is a value that somebody forgot. Below what is no whole path we would write, and delete,
    // elsewhere.
    if (verzeichnis.isEmpty() || !QDir::isAbsolutePath(m_verzeichnis))
        throw sys::FileError(
            sys::FileErrorNumber::PathNotFound,
            u"Das Verzeichnis '"_s + verzeichnis +
                u"' ist nicht zu finden: Sein Name ist leer, oder das aktuelle gibt es nicht mehr."_s);
}

QString Installation::unter(const QString& pfad) const
{
    return sys::localPath(m_verzeichnis + pfad);
}

QString Installation::betriebsordner(const QString& nummer) const
{
    return sys::localPath(::betriebsordner(daten(), nummer));
}

QString Installation::journaldatei(const QString& nummer, int jahr) const
{
    return sys::localPath(::journaldatei(betriebsordner(nummer), jahr));
}

std::vector<Betriebsdatei> Installation::dateien() const
{
    std::vector<Betriebsdatei> alle{{Dateiart::Lager, vorlagedatei(programm())},
                                    {Dateiart::Grundstamm, grundstammdatei(daten())},
                                    {Dateiart::Anlagen, anlagendatei(anlagen())}};
    for (const int jahr : registerjahre(programm()))
        alle.push_back({Dateiart::ZABStammdaten, stammdatei(programm(), QString::number(jahr))});
    for (const QString& betrieb : betriebe())
        for (const int jahr : jahresdateien(betriebsordner(betrieb)))
            alle.push_back({Dateiart::Lager, journaldatei(betrieb, jahr)});
    for (Betriebsdatei& datei : alle)
        datei.pfad = sys::localPath(datei.pfad);
    std::erase_if(alle, [](const Betriebsdatei& datei) { return !sys::Exist(datei.pfad); });
    return alle;
}

QString Installation::kurz(const QString& pfad) const
{
    return QDir(m_verzeichnis).relativeFilePath(pfad);
}

QStringList Installation::betriebe() const
{
    return ::betriebe(daten());
}

void Installation::verwende() const
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(einstellungen()));
    setze(u"Datenverzeichnis"_s, daten());
    setze(u"Gemeinsame"_s, programm());
}
