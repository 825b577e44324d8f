#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/demo/Demohof.h"
#include "platform/system/Clock.h"

using namespace Qt::StringLiterals;

namespace {

void zeigeDemohof(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QString hier = u"In '"_s + ort.verzeichnis() + u"' "_s;
    if (!legeDemohofAn(ort, sys::heute()))
        return schreibe(stdout,
                        hier + u"gibt es den Betrieb "_s + Demobetrieb + u" schon. Er bleibt, wie er ist."_s);
    schreibe(stdout,
             hier + u"liegt jetzt der Demohof, Betrieb "_s + Demobetrieb + u", mit Buchungen bis heute."_s);
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
