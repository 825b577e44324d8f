#include "core/farm/pruefung/Pruefung.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Teilerfolg.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString zeile(const Befund& befund)
{
    QStringList wo;
    if (!befund.Betrieb.isEmpty()) wo << u"Betrieb "_s + befund.Betrieb;
    if (befund.jahr) wo << QString::number(*befund.jahr);
    if (befund.ID) wo << u"Nr. "_s + QString::number(*befund.ID);
    const QString ort = wo.isEmpty() ? QString() : wo.join(u", "_s) + u": "_s;
    const QString text = (befund.istFehler() ? u"Fehler: "_s : u"Hinweis: "_s) + ort + befund.text;
    return befund.abhilfe.isEmpty() ? text : text + u" -> "_s + befund.abhilfe;
}

QString json(const Befund& befund)
{
    QJsonObject objekt{{u"schwere"_s, befund.istFehler() ? u"Fehler"_s : u"Hinweis"_s},
                       {u"text"_s, befund.text}};
    if (!befund.Betrieb.isEmpty()) objekt[u"betrieb"_s] = befund.Betrieb;
    if (befund.jahr) objekt[u"jahr"_s] = *befund.jahr;
    if (befund.ID) objekt[u"id"_s] = *befund.ID;
    if (!befund.abhilfe.isEmpty()) objekt[u"abhilfe"_s] = befund.abhilfe;
    return QString::fromUtf8(QJsonDocument(objekt).toJson(QJsonDocument::Compact));
}

void pruefen(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QStringList betriebe =
        aufruf.isSet(u"betrieb"_s) ? QStringList(gewaehlterBetrieb(ort, aufruf)) : ort.betriebe();
    const auto befunde = pruefe({ort.daten(), ort.programm(), ort.anlagen(), betriebe});
    const bool alsJson = aufruf.isSet(u"json"_s);
    for (const Befund& befund : befunde)
        schreibe(stdout, alsJson ? json(befund) : zeile(befund));
    const auto fehler = std::ranges::count_if(befunde, &Befund::istFehler);
    if (!alsJson)
        schreibe(stdout, u"%1 Fehler, %2 Hinweise"_s.arg(fehler).arg(qsizetype(befunde.size()) - fehler));
    if (fehler > 0) throw Teilerfolg();
}

} // namespace

Befehl pruefenBefehl()
{
    return {u"pruefen"_s,
            u"VERZEICHNIS"_s,
            u"Sagt, ob die Dateien heil sind und was in ihnen nicht zusammenpasst; ändert"_s
            u" nichts."_s,
            {{u"betrieb"_s, u"Nummer des Betriebes; ohne die Angabe alle."_s, u"NR"_s},
             {u"json"_s, u"Je Befund ein JSON-Objekt."_s}},
            {},
            pruefen};
}
