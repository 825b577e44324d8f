#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/demo/Demohof.h"
#include "platform/system/Clock.h"

using namespace Qt::StringLiterals;

namespace {

void zeigeDemohof(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    if (!legeDemohofAn(ort, sys::heute()))
        schreibe(stdout, u"In '"_s + ort.verzeichnis() + u"' gibt es den Betrieb "_s + Demobetrieb +
                             u" schon. Er bleibt, wie er ist."_s);
}

} // namespace

Befehl demoBefehl()
{
    return {u"demo"_s,
            u"VERZEICHNIS"_s,
            u"Legt eine Installation mit dem Demohof an, dem Betrieb "_s + Demobetrieb +
                u". Gibt es ihn schon, bleibt er, wie er ist."_s,
            {},
            {},
            zeigeDemohof};
}
