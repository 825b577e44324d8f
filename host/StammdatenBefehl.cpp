#include "host/Stammdatenausgabe.h"
#include "host/Stammdateneinlesung.h"

#include "host/Aufruffehler.h"
#include "host/Befehl.h"

using namespace Qt::StringLiterals;

namespace {

void stammdaten(const QCommandLineParser& aufruf)
{
    const QStringList worte = aufruf.positionalArguments();
    const Installation ort(worte.at(0));
    if (ort.betriebe().isEmpty()) gewaehlterBetrieb(ort, aufruf); // tells how one is set up
    ort.verwende();
    const auto gewaehltesJahr =
        aufruf.isSet(u"jahr"_s) ? std::optional(jahr(aufruf.value(u"jahr"_s))) : std::nullopt;
    const Stammdatenauftrag auftrag{
        .ort = ort,
        .pfad = worte.at(2),
        .betriebe = aufruf.isSet(u"betrieb"_s) ? QStringList(gewaehlterBetrieb(ort, aufruf)) : ort.betriebe(),
        .tabelle = aufruf.value(u"tabelle"_s),
        .jahr = gewaehltesJahr};
    const QString& wohin = worte.at(1);
    if (wohin == u"ausgeben"_s)
        gibStammdatenAus(auftrag, aufruf.isSet(u"xlsx"_s));
    else if (wohin == u"einlesen"_s)
        liesStammdatenEin(auftrag, aufruf.isSet(u"probe"_s));
    else
        throw Aufruffehler(u"'"_s + wohin + u"' ist weder 'ausgeben' noch 'einlesen'."_s);
}

} // namespace

Befehl stammdatenBefehl()
{
    return {
        u"stammdaten"_s,
        u"VERZEICHNIS ausgeben|einlesen ORDNER-ODER-DATEI"_s,
        u"Gibt Lagerorte, Artikel, Geschäftspartner, Register und Betriebe als CSV-Dateien aus, oder liest"_s
        u" solche ein: Neues kommt dazu, Geändertes ändert sich, gelöscht wird nichts."_s,
        {{u"betrieb"_s, u"Nummer des Betriebes; ohne die Angabe alle."_s, u"NR"_s},
         {u"tabelle"_s,
          u"Nur diese Tabelle: Lagerorte, Artikel, Geschaeftspartner, Mittel, Register, Betriebe."_s,
          u"NAME"_s},
         {u"jahr"_s, u"Jahr von Mitteln und Register; fehlt ihre Datei, so entsteht sie."_s, u"JAHR"_s},
         {u"xlsx"_s, u"Schreibt auch eine Arbeitsmappe mit allen Tabellen."_s},
         {u"probe"_s, u"Sagt, was geschähe, und schreibt nichts."_s}},
        {},
        stammdaten};
}
