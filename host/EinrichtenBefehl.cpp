#include "host/Aufruffehler.h"
#include "host/Befehl.h"
#include "host/Einrichtung.h"
#include "platform/system/Clock.h"

using namespace Qt::StringLiterals;

namespace {

void einrichten(const QCommandLineParser& aufruf)
{
    const QString nummer = aufruf.value(u"betrieb"_s);
    if (!istBetriebsnummer(nummer))
        throw Aufruffehler(u"'"_s + nummer +
                           u"' ist keine Betriebsnummer (--betrieb): nur Ziffern, keine führende Null."_s);
    const int angelegt = aufruf.isSet(u"jahr"_s) ? jahr(aufruf.value(u"jahr"_s)) : sys::heute().year();
    richteEin(Installation(aufruf.positionalArguments().constFirst()), nummer, angelegt);
}

} // namespace

Befehl einrichtenBefehl()
{
    return {
        u"einrichten"_s,
        u"VERZEICHNIS"_s,
        u"Legt eine leere Installation an oder ergänzt, was ihr fehlt: den Betrieb, das Jahr. Was es gibt, bleibt."_s,
        {{u"betrieb"_s, u"Nummer des Betriebes, nur Ziffern."_s, u"NR"_s},
         {u"jahr"_s, u"Jahr der Lagerdatei, 1900 bis 9999; sonst das heutige."_s, u"JAHR"_s}},
        {u"betrieb"_s},
        einrichten};
}
