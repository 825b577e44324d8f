#include "host/Befehl.h"
#include "host/Einrichtung.h"
#include "host/Komponente.h"
#include "host/Rueckblick.h"
#include "platform/system/Clock.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Stands in for the user of a screen that is only pictured: saves the picture and closes the screen. A
/// message that comes before is kept, and answered so that nothing goes on.
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
        // Answered behind this event: a box that the answer raises would wait in it, and no timer fires
        // within itself.
        if (auto* const meldung = qobject_cast<QMessageBox*>(fenster)) {
            if (m_stoerung.isEmpty()) m_stoerung = meldung->text(); // the first is the cause of what follows
            QAbstractButton* const knopf = meldung->buttons().constFirst();
            QMetaObject::invokeMethod(
                meldung, [knopf] { knopf->click(); }, Qt::QueuedConnection);
            return;
        }
        if (m_stoerung.isEmpty() && !fenster->grab().save(m_datei, "PNG"))
            m_stoerung = u"Das Bild '"_s + m_datei + u"' lässt sich nicht schreiben."_s;
        QMetaObject::invokeMethod(fenster, &QWidget::close, Qt::QueuedConnection);
    }

    const QString m_datei;
    QString m_stoerung;
};

/// Makes a copy of the settings in use those of this process: what a pictured screen remembers, such as the
/// size of its window, must not replace what the user left.
class Einstellungskopie {
public:
    Einstellungskopie()
    {
        const QString datei = u"/ZAB - Programme.ini"_s;
        const QString ziel = m_ordner.path() + datei;
        if (!m_ordner.isValid() || !QFile::copy(qEnvironmentVariable("XDG_CONFIG_HOME") + datei, ziel))
            throw sys::FileError(sys::FileErrorNumber::PathAccess,
                                 u"Die Datei '"_s + ziel + u"' lässt sich nicht anlegen."_s);
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_ordner.path()));
    }

private:
    QTemporaryDir m_ordner;
};

/// The text of a box as an error, with the number that the box gives: it is the component's, which has told
/// its user.
[[noreturn]] void wirfStoerung(const QString& text)
{
    static const QRegularExpression nummer(u"Fehler: (\\d+) "_s);
    if (const auto fund = nummer.match(text); fund.hasMatch())
        throw jet::Error(jet::ErrorNumber(fund.captured(1).toInt()), text);
    throw sys::FileError(sys::FileErrorNumber::PathAccess, text);
}

void zeige(_Lagerverwaltungsdaten& lager, const QCommandLineParser& aufruf)
{
    if (!aufruf.isSet(u"bild"_s)) return lager.LagerbestandLaden();
    Bildschirmfoto foto(aufruf.value(u"bild"_s));
    lager.LagerbestandLaden();
    if (!foto.stoerung().isEmpty()) wirfStoerung(foto.stoerung());
}

/// The year of the key date, of the copy's own day or the last one of which there is a copy.
void blickeZurueck(const Installation& ort, const QString& betrieb, const QCommandLineParser& aufruf)
{
    const auto gewaehlte = staende(ort, betrieb, aufruf.value(u"stand"_s), {});
    const auto letzte = std::prev(gewaehlte.end());
    QDate Stichdatum = letzte->second.stand.date();
    if (aufruf.isSet(u"stichdatum"_s)) Stichdatum = datum(aufruf.value(u"stichdatum"_s));
    if (!gewaehlte.contains(Stichdatum.year())) Stichdatum = QDate(letzte->first, 12, 31);
    const Rueckblick rueckblick(ort, betrieb, gewaehlte);
    const auto lager = lagerverwaltungsdaten(rueckblick.ort(), betrieb, Stichdatum);
    lager->setBetriebsname(u"Stand vom "_s + standtext(gewaehlte.at(Stichdatum.year())) +
                           u", nur zum Ansehen"_s);
    zeige(*lager, aufruf);
}

void oeffne(const QCommandLineParser& aufruf)
{
    const Installation ort(aufruf.positionalArguments().constFirst());
    const QDate Stichdatum =
        aufruf.isSet(u"stichdatum"_s) ? datum(aufruf.value(u"stichdatum"_s)) : sys::heute();
    const QString betrieb = gewaehlterBetrieb(ort, aufruf);
    if (aufruf.isSet(u"stand"_s)) return blickeZurueck(ort, betrieb, aufruf);
    ort.verwende();
    bringeVorlageAufStand(ort);
    const auto lager = lagerverwaltungsdaten(ort, betrieb, Stichdatum);
    std::optional<Einstellungskopie> einstellungen;
    if (aufruf.isSet(u"bild"_s)) einstellungen.emplace();
    zeige(*lager, aufruf);
}

} // namespace

Befehl oeffnenBefehl()
{
    return {u"oeffnen"_s,
            u"VERZEICHNIS"_s,
            u"Öffnet den Bildschirm der Lagerverwaltung; ein fehlendes Jahr wird dabei angelegt."_s,
            {betriebOption(),
             {u"stichdatum"_s, u"Tag, dessen Jahr geöffnet wird; sonst der heutige."_s, u"T.M.JJJJ"_s},
             {u"stand"_s, u"Zeigt eine Sicherung, nur zum Ansehen; wie bei zurueckholen."_s, u"T.M.JJJJ"_s},
             {u"bild"_s, u"Speichert ein Bild des Bildschirms (PNG) und schließt ihn."_s, u"DATEI"_s}},
            {},
            oeffne,
            true};
}
