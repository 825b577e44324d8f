#include "host/Befehl.h"
#include "host/Komponente.h"
#include "platform/system/Clock.h"

#include <zablager/FileError.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Stands in for the user of a screen that is only pictured: saves the picture and closes the screen. A message that comes
/// before is kept, and answered so that nothing goes on.
class Bildschirmfoto : public QObject {
public:
    explicit Bildschirmfoto(const QString& datei) : m_datei(datei) { startTimer(Takt); }
    const QString& stoerung() const { return m_stoerung; } ///< Empty: the picture was saved.

private:
    static constexpr int Takt = 50; // ms

    void timerEvent(QTimerEvent*) override
    {
        QWidget* const fenster = QApplication::activeModalWidget();
        if (!fenster || !fenster->isVisible()) return;
        if (auto* const meldung = qobject_cast<QMessageBox*>(fenster)) {
            m_stoerung = meldung->text();
            return meldung->buttons().constFirst()->click();
        }
        if (m_stoerung.isEmpty() && !fenster->grab().save(m_datei, "PNG"))
            m_stoerung = u"Das Bild '"_s + m_datei + u"' lässt sich nicht schreiben."_s;
        fenster->close();
    }

    const QString m_datei;
    QString m_stoerung;
};

void oeffne(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QDate Stichdatum = aufruf.isSet(u"stichdatum"_s) ? datum(aufruf.value(u"stichdatum"_s)) : sys::heute();
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    ort.verwende();
    std::optional<Bildschirmfoto> foto;
    if (aufruf.isSet(u"bild"_s)) foto.emplace(aufruf.value(u"bild"_s));
    lagerverwaltungsdaten(ort, betrieb, Stichdatum)->LagerbestandLaden();
    if (foto && !foto->stoerung().isEmpty()) throw sys::FileError(sys::FileErrorNumber::PathAccess, foto->stoerung());
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
