// zablager, the command-line host program: sets up installations and asks the component as every host does.
// Exit codes: 0 done, 1 refused (reason on standard error), 2 wrong command line.

#include "host/Aufruffehler.h"
#include "host/Ausgabe.h"
#include "host/Befehl.h"
#include "host/Deutsch.h"
#include "host/Teilerfolg.h"
#include "platform/system/Application.h"
#include "platform/system/CaughtError.h"
#include "platform/system/Display.h"

#include <QApplication>
#include <QMessageBox>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// "zablager einrichten VERZEICHNIS --betrieb NR [--jahr JAHR]"
QString aufrufForm(const Befehl& befehl)
{
    QString form = u"zablager "_s + befehl.name + u' ' + befehl.argumente;
    for (const QCommandLineOption& option : befehl.optionen) {
        const QString name = option.names().constFirst();
        const QString angabe = (u"--"_s + name + u' ' + option.valueName()).trimmed();
        form += befehl.noetig.contains(name) ? u' ' + angabe : u" ["_s + angabe + u']';
    }
    return form;
}

void zeigeUebersicht(const std::vector<Befehl>& befehle)
{
    schreibe(stdout, u"Lagerhaltung auf der Kommandozeile.\n"_s);
    for (const Befehl& befehl : befehle)
        schreibe(stdout, aufrufForm(befehl) + u"\n    "_s + befehl.beschreibung);
    schreibe(
        stdout,
        u"zablager --version\n    Zeigt die Version.\n\nOptionen eines Befehls: zablager BEFEHL --hilfe"_s);
}

/// Qt's own first line names no option.
void zeigeHilfe(const Befehl& befehl, const QCommandLineParser& aufruf)
{
    schreibe(stdout,
             u"Aufruf: "_s + aufrufForm(befehl) + u'\n' + aufruf.helpText().section(u'\n', 1).trimmed());
}

const Befehl& gewaehlt(const std::vector<Befehl>& befehle, const QString& name)
{
    const auto befehl =
        std::find_if(befehle.begin(), befehle.end(), [&](const Befehl& b) { return b.name == name; });
    if (befehl == befehle.end()) throw Aufruffehler(u"Den Befehl '"_s + name + u"' gibt es nicht."_s);
    return *befehl;
}

void fuehreAus(const Befehl& befehl, const QStringList& worte)
{
    QCommandLineParser aufruf;
    aufruf.setApplicationDescription(befehl.beschreibung);
    aufruf.addOption({{u"h"_s, u"hilfe"_s, u"help"_s}, u"Zeigt diese Hilfe."_s});
    aufruf.addOptions(befehl.optionen);
    aufruf.addPositionalArgument(befehl.name, befehl.argumente, befehl.name + u' ' + befehl.argumente);
    if (!aufruf.parse(worte)) throw Aufruffehler(aufruf.errorText());
    if (aufruf.isSet(u"hilfe"_s)) return zeigeHilfe(befehl, aufruf);
    const bool vollstaendig = std::all_of(befehl.noetig.begin(), befehl.noetig.end(),
                                          [&](const QString& option) { return aufruf.isSet(option); });
    const qsizetype worteHoechstens = befehl.argumente.split(u' ').size();
    const qsizetype worteMindestens = worteHoechstens - befehl.argumente.count(u'[');
    const qsizetype anzahl = aufruf.positionalArguments().size();
    if (!vollstaendig || anzahl < worteMindestens || anzahl > worteHoechstens)
        throw Aufruffehler(u"Aufruf: "_s + aufrufForm(befehl));
    befehl.ausfuehren(aufruf);
}

std::vector<Befehl> alleBefehle()
{
    return {einrichtenBefehl(), demoBefehl(),          oeffnenBefehl(),      bestandBefehl(),
            uebertragBefehl(),  aktualisierenBefehl(), uebernehmenBefehl(),  stammdatenBefehl(),
            pruefenBefehl(),    sichernBefehl(),       zurueckholenBefehl(), umbenennenBefehl(),
            verlaufBefehl(),    jahreslisteBefehl(),   sqlBefehl()};
}

void fuehreAus(QStringList worte)
{
    const std::vector<Befehl> befehle = alleBefehle();
    if (worte.size() < 2) throw Aufruffehler(u"Es fehlt der Befehl."_s);
    const QString name = worte.takeAt(1);
    if (name == u"-h"_s || name == u"--hilfe"_s || name == u"--help"_s) return zeigeUebersicht(befehle);
    if (name == u"--version"_s) return schreibe(stdout, u"zablager "_s + sys::applicationVersion());
    fuehreAus(gewaehlt(befehle, name), worte);
}

/// Only a command that shows something needs a display; without one the library says that it does.
std::unique_ptr<QCoreApplication> anwendung(int& argc, char** argv)
{
    const QString name = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    const std::vector<Befehl> befehle = alleBefehle();
    const bool zeigt = std::any_of(befehle.begin(), befehle.end(), [&](const Befehl& befehl) {
        return befehl.name == name && befehl.zeigtFenster;
    });
    if (zeigt && sys::hasDisplay(argc, argv)) {
        QGuiApplication::setDesktopFileName(u"zablager"_s); // the desktop finds icon and name by it
        return std::make_unique<QApplication>(argc, argv);
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

/// The reason of a refusal, on standard error, and in a box where nobody would read it there. Whoever wants a
/// picture is a program, which no box may hold up.
void melde(const QString& grund, const QString& hilfe)
{
    schreibe(stderr, grund + hilfe);
    const QStringList worte = QCoreApplication::arguments();
    const bool nurBild = !worte.filter(u"--bild"_s).isEmpty();
    if (nurBild || sys::hasTerminal() || !qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    QMessageBox meldung(
        QMessageBox::Critical, u"Lagerverwaltung"_s,
        grund + u"\n\nAufgerufen wurde: zablager "_s + worte.mid(1).join(u' ') +
            u"\n\nSo steht es im Menüeintrag zablager.desktop. Eine Kopie davon kann ein anderes"
            u" Verzeichnis nennen, oder mit --betrieb NR einen Betrieb."_s);
    meldung.setTextFormat(Qt::PlainText);
    meldung.exec();
}

} // namespace

int main(int argc, char* argv[])
{
    const auto programm = anwendung(argc, argv);
    Deutsch deutsch;
    QCoreApplication::installTranslator(&deutsch);
    try {
        fuehreAus(QCoreApplication::arguments());
        return 0;
    } catch (const Aufruffehler& fehler) {
        melde(QString::fromUtf8(fehler.what()), u"\nHilfe: zablager --hilfe"_s);
        return 2;
    } catch (const Teilerfolg&) {
        return 1;
    } catch (...) {
        const sys::CaughtError fehler = sys::caughtError();
        melde(fehler.text, u" (Fehler "_s + QString::number(fehler.number) + u')');
    }
    return 1;
}
