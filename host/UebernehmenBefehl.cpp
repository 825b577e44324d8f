#include "core/farm/Jahresdateien.h"
#include "core/farm/uebernahme/Uebernahme.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Einrichtung.h"
#include "host/Teilerfolg.h"
#include "platform/system/Display.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

QString frageKennwort(const QString& datei)
{
    if (!sys::hasTerminal()) return {};
    schreibe(stderr, u"Kennwort der Datei '"_s + datei + u"':"_s);
    return QTextStream(stdin).readLine();
}

void uebernehmen(const QCommandLineParser& aufruf)
{
    const QString nummer = betriebsnummer(aufruf);
    const QStringList orte = aufruf.positionalArguments();
    const Installation ort(orte.constLast());
    const bool probe = aufruf.isSet(u"probe"_s);
    if (!probe) legeOrdnerUndVorlageAn(ort, nummer);
    const bool alles = uebernimm(
        {.suche = {orte.constFirst(), nummer, aufruf.value(u"anlagen"_s), aufruf.value(u"programm"_s)},
         .ziel = {ort.daten(), ort.betriebsordner(nummer), ort.anlagen(), ort.programm()},
         .kennwort = aufruf.value(u"kennwort"_s),
         .verluste = aufruf.isSet(u"verluste"_s),
         .probe = probe,
         .frageKennwort = frageKennwort,
         .sage = [](const QString& zeile) { schreibe(stdout, zeile); },
         .klage = [](const QString& zeile) { schreibe(stderr, zeile); }});
    if (!probe) {
        const auto jahre = jahresdateien(ort.betriebsordner(nummer));
        richteEin(ort, nummer, jahre.empty() ? std::nullopt : std::optional(jahre.back()));
    }
    if (!alles) throw Teilerfolg();
}

} // namespace

Befehl uebernehmenBefehl()
{
    return {
        u"uebernehmen"_s,
        u"ALT VERZEICHNIS"_s,
        u"Übernimmt einen Betrieb aus den Dateien der alten Programme: aus ihrem Datenverzeichnis oder eine"
        u" einzelne. Was es gibt, bleibt."_s,
        {{u"betrieb"_s, u"Nummer des Betriebes, nur Ziffern."_s, u"NR"_s},
         {u"kennwort"_s, u"Kennwort einer Datei, wenn es ein eigenes ist."_s, u"PW"_s},
         {u"anlagen"_s, u"Wo Anlagen.mdb liegt; sonst neben dem Datenverzeichnis."_s, u"ORDNER"_s},
         {u"programm"_s, u"Wo die Register liegen; sonst neben dem Datenverzeichnis."_s, u"ORDNER"_s},
         {u"verluste"_s, u"Übernimmt auch Dateien, von denen einzelne Werte nicht mitkommen."_s},
         {u"probe"_s, u"Sagt, was geschähe, und schreibt nichts."_s}},
        {u"betrieb"_s},
        uebernehmen};
}
