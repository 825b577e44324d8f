#include "host/Komponente.h"

#include "core/farm/Dateien.h"
#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Settings.h"

#include <zablager/FileError.h>

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

namespace {

IZablager& ladeBibliothek()
{
    const QString pfad = QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../lib/zablager.so"_s);
    QPluginLoader bibliothek(pfad);
    auto* const zablager = qobject_cast<IZablager*>(bibliothek.instance());
    if (!zablager) {
        const bool fehlt = !sys::Exist(pfad);
        throw sys::FileError(fehlt ? sys::FileErrorNumber::FileNotFound : sys::FileErrorNumber::PathAccess,
                             u"Die Bibliothek '"_s + pfad +
                                 (fehlt ? u"' fehlt."_s : u"' lässt sich nicht laden."_s));
    }
    return *zablager;
}

} // namespace

std::unique_ptr<_Lagerverwaltungsdaten> lagerverwaltungsdaten(const Installation& ort,
                                                              const QString& Betriebsnummer, QDate Stichdatum)
{
    IZablager& zablager = ladeBibliothek();
    zablager.setzeMeldungen(&sys::messages());
    auto lager = zablager.erzeuge();
    lager->setBetriebsnummer(Betriebsnummer);
    const QString abschnitt = u"Betrieb "_s + Betriebsnummer; // of the settings, this host's own
    lager->setBetriebsname(sys::GetSetting(abschnitt, u"Name"_s));
    lager->setBetriebsadresse(sys::GetSetting(abschnitt, u"Adresse"_s));
    lager->setWaehrung(u"EUR"_s);
    lager->setStammverzeichnis(ort.daten());
    lager->setAnlagenverzeichnis(ort.anlagen());
    lager->setAnlagenpasswort(kennwort(Dateiart::Anlagen));
    lager->setLagerpasswort(verbindung(Dateiart::Lager));
    lager->setDatenverzeichnis(ort.journaldatei(Betriebsnummer, Stichdatum.year()));
    lager->setStichdatum(Stichdatum);
    lager->setHerkunft(u"zablager"_s);
    return lager;
}
