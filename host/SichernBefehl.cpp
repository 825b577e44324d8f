#include "core/farm/Sicherung.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"

using namespace Qt::StringLiterals;

namespace {

void sichern(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    for (const Betriebsdatei& datei : ort.dateien())
        schreibe(stdout, ort.kurz(datei.pfad) + u" -> "_s + ort.kurz(sichere(datei.pfad)));
}

} // namespace

Befehl sichernBefehl()
{
    return {u"sichern"_s,
            u"VERZEICHNIS"_s,
            u"Legt von allen Dateien eine Sicherung an, auch während mit ihnen gearbeitet wird."_s,
            {},
            {},
            sichern};
}
