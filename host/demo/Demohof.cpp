#include "host/demo/Demohof.h"

#include "core/farm/Dateien.h"
#include "host/Einrichtung.h"
#include "host/Komponente.h"
#include "host/demo/Hofjournal.h"
#include "host/demo/Stammdaten.h"
#include "platform/jet/Engine.h"
#include "platform/system/Files.h"
#include "platform/system/Settings.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

constexpr int AbgeschlosseneJahre = 3;

[[noreturn]] void verweigere(const QString& text)
{
    throw sys::FileError(sys::FileErrorNumber::PathAccess, text);
}

/// With all that is in it. What is no whole path would be looked for in the current directory. \returns
/// whether it is gone.
bool loesche(const QString& verzeichnis)
{
    return QDir::isAbsolutePath(verzeichnis) && QDir(verzeichnis).removeRecursively();
}

void verschiebe(const QString& von, const QString& nach)
{
    if (!QDir().rename(von, nach)) verweigere(u"'"_s + nach + u"' lässt sich nicht anlegen."_s);
}

bool hatDemohof(const Installation& ort)
{
    const QStringList betriebe = ort.betriebe();
    if (betriebe.contains(Demobetrieb)) return true;
    if (!betriebe.isEmpty())
        verweigere(u"In '"_s + ort.verzeichnis() + u"' gibt es andere Betriebe ("_s + betriebe.join(u", "_s) +
                   u"). Der Demohof braucht ein Verzeichnis für sich."_s);
    return false;
}

/// The years one after the other: each begins with what the one before it left.
void fuelleJahre(const Installation& baustelle, const Sortiment& sortiment, QDate heute)
{
    Hofkalender kalender(sortiment);
    const int erstes = heute.year() - AbgeschlosseneJahre;
    for (int jahr = erstes; jahr <= heute.year(); ++jahr) {
        richteEin(baustelle, Demobetrieb, jahr);
        fuelleJahresstammdaten(baustelle, jahr);
        if (jahr > erstes)
            lagerverwaltungsdaten(baustelle, Demobetrieb, QDate(jahr - 1, 12, 31))
                ->Kontrolle_LagerbestandLaden();

        const auto journal = oeffne(Dateiart::Lager, baustelle.journaldatei(Demobetrieb, jahr));
        if (jahr == erstes) buche(*journal, kalender.anfangsbestand(jahr));
        ergaenzeUntergruppen(*journal, sortiment);
        std::vector<Vorgang> buchungen = kalender.jahr(jahr);
        std::erase_if(buchungen, [&](const Vorgang& buchung) { return buchung.tag > heute; });
        buche(*journal, buchungen);
    }
}

void baue(const Installation& baustelle, QDate heute)
{
    const Sortiment sortiment;
    fuelleJahre(baustelle, sortiment, heute);
    fuelleStammdaten(baustelle, sortiment);
    jet::engine().release();
}

void verschiebeDateien(const QString& von, const QString& nach)
{
    legeVerzeichnisAn(nach);
    for (const QString& datei : QDir(von).entryList(QDir::Files)) {
        const QString ziel = nach + u'/' + datei;
        if (sys::Exist(ziel) == 0) verschiebe(von + u'/' + datei, ziel);
    }
}

void uebernimm(const Installation& baustelle, const Installation& ort)
{
    verschiebeDateien(baustelle.programm(), ort.programm());
    verschiebeDateien(baustelle.formulare(), ort.formulare());
    verschiebeDateien(baustelle.lieferscheinformulare(), ort.lieferscheinformulare());
    verschiebeDateien(baustelle.anlagen(), ort.anlagen());
    verschiebeDateien(baustelle.daten(), ort.daten());
    ort.verwende();
    const QString abschnitt = u"Betrieb "_s + Demobetrieb;
    sys::SaveSetting(abschnitt, u"Name"_s, u"Demohof Oberau"_s);
    sys::SaveSetting(abschnitt, u"Adresse"_s, u"Oberau 5, 4799 Beispielau"_s);
    verschiebe(baustelle.betriebsordner(Demobetrieb), ort.betriebsordner(Demobetrieb));
}

} // namespace

bool legeDemohofAn(const Installation& ort, QDate heute)
{
    if (hatDemohof(ort)) {
        legeBerichtsformulareAn(ort); // the farm stays as it is, but a newer program may print more
        return false;
    }
    legeVerzeichnisAn(ort.verzeichnis());
    QLockFile sperre(ort.verzeichnis() + u"/demo.sperre"_s);
    sperre.setStaleLockTime(
        0); // that of a killed run is taken over; one at work keeps it however long it takes
    if (!sperre.tryLock())
        verweigere(u"In '"_s + ort.verzeichnis() +
                   (sperre.error() == QLockFile::LockFailedError ? u"' wird der Demohof gerade angelegt."_s
                                                                 : u"' lässt sich nichts anlegen."_s));
    if (hatDemohof(ort)) return false; // of another run, meanwhile

    const Installation baustelle(ort.verzeichnis() + u"/demo.neu"_s);
    if (!loesche(baustelle.verzeichnis()))
        verweigere(u"'"_s + baustelle.verzeichnis() + u"' lässt sich nicht löschen."_s);
    const auto raeumeAuf = qScopeGuard([&] {
        jet::engine().release();
        loesche(baustelle.verzeichnis()); // what stays, the next run deletes
    });
    baue(baustelle, heute);
    uebernimm(baustelle, ort);
    return true;
}
