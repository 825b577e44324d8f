#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Einrichtung.h"
#include "platform/system/Clock.h"
#include "platform/system/Files.h"
#include "platform/system/Settings.h"

using namespace Qt::StringLiterals;

namespace {

void einrichten(const QCommandLineParser& aufruf)
{
    const QString nummer = betriebsnummer(aufruf);
    const int angelegt = aufruf.isSet(u"jahr"_s) ? jahr(aufruf.value(u"jahr"_s)) : sys::heute().year();
    const Installation ort(aufruf.positionalArguments().constFirst());
    const bool gabEs = sys::Exist(ort.journaldatei(nummer, angelegt)) != 0;
    richteEin(ort, nummer, angelegt);
    const QString abschnitt = u"Betrieb "_s + nummer;
    if (aufruf.isSet(u"name"_s)) sys::SaveSetting(abschnitt, u"Name"_s, aufruf.value(u"name"_s));
    if (aufruf.isSet(u"adresse"_s)) sys::SaveSetting(abschnitt, u"Adresse"_s, aufruf.value(u"adresse"_s));
    schreibe(stdout, u"In '"_s + ort.verzeichnis() + u"' "_s + (gabEs ? u"gibt es"_s : u"ist jetzt"_s) +
                         u" Betrieb "_s + nummer + u" mit dem Jahr "_s + QString::number(angelegt) +
                         (gabEs ? u" schon; was noch fehlte, ist ergänzt."_s : u" eingerichtet."_s));
    if (aufruf.isSet(u"beispiel"_s) && !fuelleMitBeispiel(ort))
        schreibe(stdout, u"Stammdaten gibt es schon; das Beispiel bleibt weg."_s);
}

} // namespace

Befehl einrichtenBefehl()
{
    return {u"einrichten"_s,
            u"VERZEICHNIS"_s,
            u"Legt eine leere Installation an oder ergänzt, was ihr fehlt: den Betrieb, das Jahr. Was es"
            u" gibt, bleibt."_s,
            {{u"betrieb"_s, u"Nummer des Betriebes, nur Ziffern."_s, u"NR"_s},
             {u"jahr"_s, u"Jahr der Lagerdatei, 1900 bis 9999; sonst das heutige."_s, u"JAHR"_s},
             {u"name"_s, u"Name des Betriebes."_s, u"NAME"_s},
             {u"adresse"_s, u"Adresse des Betriebes, wie sie auf Lieferscheinen steht."_s, u"ADRESSE"_s},
             {u"beispiel"_s, u"Legt zwei Lagerorte und gängige Artikel an, wenn es noch keine gibt."_s}},
            {u"betrieb"_s},
            einrichten};
}
