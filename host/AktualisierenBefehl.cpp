#include "core/farm/Schema.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Einrichtung.h"

#include <zablager/DatabaseError.h>

using namespace Qt::StringLiterals;

namespace {

QString stand(const Aktualisierung& erreicht)
{
    const QString text = u"Stand "_s + QString::number(erreicht.vorher);
    return erreicht.vorher == erreicht.nachher ? text : text + u" -> "_s + QString::number(erreicht.nachher);
}

void aktualisiere(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    legeBerichtsformulareAn(ort); // that newer programs print with
    std::optional<jet::Error> erster;
    for (const Betriebsdatei& datei : ort.dateien()) {
        const QString name = ort.kurz(datei.pfad);
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
