#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Komponente.h"
#include "platform/system/Clock.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// Saves a picture of the screen that is about to open, instead of leaving it to a user, and closes it.
void speichereBild(const QString& datei)
{
    auto* const uhr = new QTimer(qApp);
    uhr->callOnTimeout([uhr, datei] {
        QWidget* const fenster = QApplication::activeModalWidget();
        if (!fenster || !fenster->isVisible()) return;
        uhr->deleteLater();
        const bool gespeichert = fenster->grab().save(datei, "PNG");
        fenster->close();
        if (!gespeichert) schreibe(stderr, u"Das Bild '"_s + datei + u"' lässt sich nicht schreiben."_s);
    });
    uhr->start(50);
}

void oeffne(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QDate Stichdatum = aufruf.isSet(u"stichdatum"_s) ? datum(aufruf.value(u"stichdatum"_s)) : sys::heute();
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    ort.verwende();
    if (aufruf.isSet(u"bild"_s)) speichereBild(aufruf.value(u"bild"_s));
    lagerverwaltungsdaten(ort, betrieb, Stichdatum)->LagerbestandLaden();
}

} // namespace

Befehl oeffnenBefehl()
{
    return {u"oeffnen"_s,
            u"VERZEICHNIS"_s,
            u"Öffnet den Bildschirm der Lagerverwaltung; ein fehlendes Jahr wird dabei angelegt."_s,
            {betriebOption(),
             {u"stichdatum"_s, u"Tag, dessen Jahr geöffnet wird; sonst der heutige."_s, u"T.M.JJJJ"_s},
             {u"bild"_s, u"Speichert ein Bild des Bildschirms (PNG) und schließt ihn."_s, u"DATEI"_s}},
            {},
            oeffne,
            true};
}
