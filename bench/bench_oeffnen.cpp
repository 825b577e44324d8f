// Opening the main screen, until it has been painted, and until both lists are filled.

#include "bench/BareAnsichten.h"
#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include "ui_LagerbestandNeu.h"

#include "overview/Ansichten.h"
#include "platform/controls/DataControl.h"
#include "platform/jet/Engine.h"

#include <QApplication>
#include <QMenuBar>
#include <QProcess>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Entwurfsgroesse(1000, 700);

/// What a program of the run opens, and how far it goes.
enum class Inhalt {
    Nichts,      ///< The widgets without data.
    Anweisungen, ///< The same, and what both lists ask is read bare.
    Jahr,        ///< The main screen until it is painted.
    Listen,      ///< And until both lists are filled.
};

/// How a program of the run is told.
constexpr std::pair<Inhalt, QStringView> Argumente[] = {{Inhalt::Nichts, u"--nichts"},
                                                        {Inhalt::Anweisungen, u"--anweisungen"},
                                                        {Inhalt::Jahr, u"--jahr"},
                                                        {Inhalt::Listen, u"--listen"}};

std::optional<Inhalt> inhaltZu(const QString& text)
{
    for (const auto& [inhalt, argument] : Argumente)
        if (text == argument) return inhalt;
    return {};
}

/// The same widgets without data: fields, menu and the columns of both lists.
class LeererBildschirm : public QDialog {
public:
    LeererBildschirm()
    {
        m_ui.setupUi(this);
        richteJournalEin(m_journal, *m_ui.Journalliste);
        richteBestandslisteEin(m_bestand, *m_ui.BestandListe);
        auto* const leiste = new QMenuBar(this);
        for (QAction* befehl : {m_ui.M_Vorjahr, m_ui.M_PflanzschPrufen, m_ui.M_Hilfe})
            leiste->addMenu(befehl->text())->addAction(befehl);
        layout()->setMenuBar(leiste);
        resize(Entwurfsgroesse);
    }

private:
    Ui::LagerbestandNeu m_ui;
    DataControl m_journal, m_bestand;
};

std::unique_ptr<QDialog> bildschirm(Inhalt inhalt)
{
    if (inhalt == Inhalt::Jahr || inhalt == Inhalt::Listen) return std::make_unique<LagerbestandNeu>();
    return std::make_unique<LeererBildschirm>();
}

QString groesse(const Umfang& umfang)
{
    return u", "_s + QString::number(umfang.zeilen) + u" rows, "_s + QString::number(umfang.paare) +
           u" pairs"_s;
}

void pruefe(const Umfang& umfang)
{
    const Messbildschirm bildschirm;
    fordere(bildschirm.journal().RecordCount() == umfang.zeilen, u"rows are missing in the journal"_s);
    fordere(bildschirm.bestandsliste().RecordCount() == umfang.paare,
            u"rows are missing in the stock list"_s);
}

/// A program of its own that opens the screen, from its start to its end.
void starte(Inhalt inhalt, const Messbetrieb& betrieb)
{
    QProcess programm;
    programm.setStandardErrorFile(QProcess::nullDevice());
    auto umgebung = QProcessEnvironment::systemEnvironment();
    umgebung.insert(u"TMPDIR"_s, betrieb.verzeichnis()); // it leaves there what it does not clear up
    programm.setProcessEnvironment(umgebung);
    const auto wie = std::ranges::find(Argumente, inhalt, [](const auto& paar) { return paar.first; });
    programm.start(QCoreApplication::applicationFilePath(), {wie->second.toString(), betrieb.verzeichnis()});
    fordere(programm.waitForFinished() && programm.exitCode() == 0, u"the program did not open its screen"_s);
}

void messeProgramm(const Messbetrieb& betrieb, const Umfang& umfang)
{
    Messung messung(u"A program that opens the main screen"_s + groesse(umfang), 1);
    messung.nimm(u"limit: the same widgets without data"_s, 0, [&] { starte(Inhalt::Nichts, betrieb); });
    messung.nimm(u"LagerbestandNeu"_s, 1.2, [&] { starte(Inhalt::Jahr, betrieb); });
    messung.miss(umfang.runden);
    Messung listen(u"A program that fills both lists"_s + groesse(umfang), 1);
    listen.nimm(u"limit: widgets, the lists' statements bare"_s, 0,
                [&] { starte(Inhalt::Anweisungen, betrieb); });
    listen.nimm(u"LagerbestandNeu"_s, 1.5, [&] { starte(Inhalt::Listen, betrieb); });
    listen.miss(umfang.runden);
}

/// In a program that runs already. Every time the year file is opened anew.
void messeFenster(const Umfang& umfang)
{
    std::unique_ptr<QDialog> fenster;
    const auto schliesse = [&] {
        fenster.reset();
        jet::engine().release();
    };
    const auto oeffne = [&](Inhalt inhalt) {
        fenster = bildschirm(inhalt);
        zeigeBisGemalt(*fenster);
    };
    Messung messung(u"Opening the main screen in a running program"_s + groesse(umfang), 1);
    messung.nimm(
        u"the same widgets without data"_s, 0, [&] { oeffne(Inhalt::Nichts); }, schliesse);
    messung.nimm(
        u"LagerbestandNeu"_s, 0, [&] { oeffne(Inhalt::Jahr); }, schliesse);
    messung.miss(umfang.runden);
}

void messeOeffnen(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.zeilen, umfang.paare);
    pruefe(umfang);
    messeProgramm(betrieb, umfang);
    messeFenster(umfang);
}

void liesAnweisungen(const QString& journaldatei)
{
    const Ausschnitt jahr{
        QDate(Messbetrieb::ErstesJahr, 1, 1), QDate(Messbetrieb::ErstesJahr, 12, 31), {}, {}};
    BareAnsichten bar(journaldatei);
    bar.repariere();
    fordere(!bar.schluessel(jahr).empty() && !bar.bestandsliste(jahr).empty(), u"no rows"_s);
}

void warteAufListen(const QDialog& fenster)
{
    const auto* const bestand = fenster.findChild<DataControl*>(u"Bestanddaten"_s);
    while (bestand->RecordCount() == 0)
        QCoreApplication::processEvents();
}

/// What a started program does; it ends without clearing up.
void oeffneUndEnde(Inhalt inhalt, const QString& verzeichnis)
{
    const Installation ort(verzeichnis);
    Messbetrieb::melde(ort);
    const auto fenster = bildschirm(inhalt);
    zeigeBisGemalt(*fenster);
    if (inhalt == Inhalt::Anweisungen) liesAnweisungen(ort.journaldatei(u"4711"_s, Messbetrieb::ErstesJahr));
    if (inhalt == Inhalt::Listen) warteAufListen(*fenster);
    std::_Exit(0);
}

} // namespace

int main(int argc, char** argv)
{
    const auto inhalt = argc == 3 ? inhaltZu(QString::fromLocal8Bit(argv[1])) : std::nullopt;
    if (!inhalt) return messeBildschirm(argc, argv, {10'000, 1'000, 30}, {10'000, 1'000, 100}, messeOeffnen);
    const QApplication programm(argc, argv);
    oeffneUndEnde(*inhalt, QString::fromLocal8Bit(argv[2]));
}
