#include "host/Befehl.h"

#include "core/farm/Betriebe.h"
#include "host/Aufruffehler.h"

#include <zablager/FileError.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int ErstesJahr = 1900;

} // namespace

QCommandLineOption betriebOption()
{
    return {u"betrieb"_s, u"Nummer des Betriebes; ohne die Angabe der einzige, den es gibt."_s, u"NR"_s};
}

QString betriebsnummer(const QCommandLineParser& aufruf)
{
    QString nummer = aufruf.value(u"betrieb"_s);
    if (istBetriebsnummer(nummer)) return nummer;
    throw Aufruffehler(u"'"_s + nummer +
                       u"' ist keine Betriebsnummer (--betrieb): nur Ziffern, keine führende Null."_s);
}

QString gewaehlterBetrieb(const Installation& ort, const QCommandLineParser& aufruf)
{
    const QStringList betriebe = ort.betriebe();
    const QString gewuenscht = aufruf.value(u"betrieb"_s);
    if (betriebe.isEmpty())
        throw sys::FileError(
            sys::FileErrorNumber::PathNotFound,
            u"In '"_s + ort.verzeichnis() +
                u"' ist kein Betrieb eingerichtet; das macht 'zablager einrichten VERZEICHNIS --betrieb"
                u" NR'."_s);
    const QString auswahl = u" Vorhanden: "_s + betriebe.join(u", "_s);
    if (aufruf.isSet(u"betrieb"_s) && !betriebe.contains(gewuenscht))
        throw Aufruffehler(u"Den Betrieb '"_s + gewuenscht + u"' gibt es in '"_s + ort.verzeichnis() +
                           u"' nicht."_s + auswahl);
    if (gewuenscht.isEmpty() && betriebe.size() > 1)
        throw Aufruffehler(u"Welcher Betrieb? Bitte mit --betrieb angeben."_s + auswahl);
    return gewuenscht.isEmpty() ? betriebe.first() : gewuenscht;
}

int jahr(const QString& text)
{
    bool istZahl = false;
    const int zahl = text.size() == 4 ? text.toInt(&istZahl) : 0;
    if (!istZahl || zahl < ErstesJahr || zahl > 9999)
        throw Aufruffehler(u"'"_s + text + u"' ist kein Jahr von 1900 bis 9999."_s);
    return zahl;
}

QDate datum(const QString& text)
{
    const QDate tag = QDate::fromString(text, u"d.M.yyyy"_s);
    if (!tag.isValid() || tag.year() < ErstesJahr)
        throw Aufruffehler(u"'"_s + text + u"' ist kein Datum der Form T.M.JJJJ."_s);
    return tag;
}
