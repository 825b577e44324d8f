#include "host/Befehl.h"
#include "host/Komponente.h"

using namespace Qt::StringLiterals;

namespace {

void uebertrage(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const int ab = jahr(aufruf.value(u"ab"_s));
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    ort.verwende();
    lagerverwaltungsdaten(ort, betrieb, QDate(ab, 1, 1))->Kontrolle_LagerbestandLaden();
}

} // namespace

Befehl uebertragBefehl()
{
    return {u"uebertrag"_s,
            u"VERZEICHNIS"_s,
            u"Schreibt die Bestände von Jahr zu Jahr weiter."_s,
            {betriebOption(), {u"ab"_s, u"Erstes Jahr, dessen Bestände weitergeschrieben werden."_s, u"JAHR"_s}},
            {u"ab"_s},
            uebertrage};
}
