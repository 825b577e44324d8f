#include "host/Befehl.h"
#include "host/Komponente.h"
#include "platform/system/Clock.h"

using namespace Qt::StringLiterals;

namespace {

void oeffne(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QDate Stichdatum = aufruf.isSet(u"stichdatum"_s) ? datum(aufruf.value(u"stichdatum"_s)) : sys::heute();
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    ort.verwende();
    lagerverwaltungsdaten(ort, betrieb, Stichdatum)->LagerbestandLaden();
}

} // namespace

Befehl oeffnenBefehl()
{
    return {
        u"oeffnen"_s,
        u"VERZEICHNIS"_s,
        u"Öffnet den Bildschirm der Lagerverwaltung; ein fehlendes Jahr wird dabei angelegt."_s,
        {betriebOption(), {u"stichdatum"_s, u"Tag, dessen Jahr geöffnet wird; sonst der heutige."_s, u"T.M.JJJJ"_s}},
        {},
        oeffne};
}
