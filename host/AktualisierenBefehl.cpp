#include "core/farm/Jahresdateien.h"
#include "core/farm/Schema.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "platform/system/Files.h"
#include "platform/system/Path.h"

#include <zablager/DatabaseError.h>

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

struct Datei {
    Dateiart art;
    QString pfad;
};

/// All that there are below the directory, those of the whole family first.
std::vector<Datei> dateien(const Installation& ort)
{
    std::vector<Datei> alle{{Dateiart::Lager, vorlagedatei(ort.programm())},
                            {Dateiart::Grundstamm, grundstammdatei(ort.daten())},
                            {Dateiart::Anlagen, anlagendatei(ort.anlagen())}};
    for (const int jahr : registerjahre(ort.programm()))
        alle.push_back({Dateiart::ZABStammdaten, stammdatei(ort.programm(), QString::number(jahr))});
    for (const QString& betrieb : ort.betriebe())
        for (const int jahr : jahresdateien(ort.betriebsordner(betrieb)))
            alle.push_back({Dateiart::Lager, ort.journaldatei(betrieb, jahr)});
    std::erase_if(alle, [](const Datei& datei) { return !sys::Exist(datei.pfad); });
    return alle;
}

QString stand(const Aktualisierung& erreicht)
{
    const QString text = u"Stand "_s + QString::number(erreicht.vorher);
    return erreicht.vorher == erreicht.nachher ? text : text + u" -> "_s + QString::number(erreicht.nachher);
}

void aktualisiere(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    std::optional<jet::Error> erster;
    for (const Datei& datei : dateien(ort)) {
        const QString name = QDir(ort.verzeichnis()).relativeFilePath(sys::localPath(datei.pfad));
        try {
            schreibe(stdout,
                     name + u": "_s + stand(bringeAufStand(*oeffne(datei.art, datei.pfad), datei.art)));
        } catch (const jet::Error& fehler) { // the others are brought up all the same
            schreibe(stdout, name + u": bleibt, wie sie ist"_s);
            if (!erster) erster = fehler;
        }
    }
    if (erster) throw *erster;
}

} // namespace

Befehl aktualisierenBefehl()
{
    return {u"aktualisieren"_s,
            u"VERZEICHNIS"_s,
            u"Bringt die Dateien einer Installation auf den Stand dieses Programms und nennt ihn vorher und"
            u" nachher."_s,
            {},
            {},
            aktualisiere};
}
