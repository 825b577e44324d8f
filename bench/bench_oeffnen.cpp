// Opening the main screen, until it has been painted.

#include "bench/Messbetrieb.h"
#include "bench/Messbildschirm.h"

#include "ui_LagerbestandNeu.h"

#include "overview/Ansichten.h"
#include "platform/controls/DataControl.h"
#include "platform/jet/Engine.h"

#include <QApplication>
#include <QMenuBar>
#include <QProcess>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Entwurfsgroesse(1000, 700);

enum class Inhalt { Nichts, Jahr };

/// How a program of the run is told what to open.
QString argument(Inhalt inhalt)
{
    return inhalt == Inhalt::Jahr ? u"--jahr"_s : u"--nichts"_s;
}

std::optional<Inhalt> inhaltZu(const QString& text)
{
    for (const Inhalt inhalt : {Inhalt::Nichts, Inhalt::Jahr})
        if (text == argument(inhalt)) return inhalt;
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
    if (inhalt == Inhalt::Nichts) return std::make_unique<LeererBildschirm>();
    return std::make_unique<LagerbestandNeu>();
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

/// A program of its own that opens the screen, from its start to the first painting.
void starte(Inhalt inhalt, const Messbetrieb& betrieb)
{
    QProcess programm;
    programm.setStandardErrorFile(QProcess::nullDevice());
    auto umgebung = QProcessEnvironment::systemEnvironment();
    umgebung.insert(u"TMPDIR"_s, betrieb.verzeichnis()); // it leaves there what it does not clear up
    programm.setProcessEnvironment(umgebung);
    programm.start(QCoreApplication::applicationFilePath(), {argument(inhalt), betrieb.verzeichnis()});
    fordere(programm.waitForFinished() && programm.exitCode() == 0, u"the program did not open its screen"_s);
}

void messeProgramm(const Messbetrieb& betrieb, const Umfang& umfang)
{
    Messung messung(u"A program that opens the main screen"_s + groesse(umfang), 1);
    messung.nimm(u"limit: the same widgets without data"_s, 0, [&] { starte(Inhalt::Nichts, betrieb); });
    messung.nimm(u"LagerbestandNeu"_s, 1.2, [&] { starte(Inhalt::Jahr, betrieb); });
    messung.miss(umfang.runden);
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

/// What a started program does; it ends with the painting, without clearing up.
void oeffneUndEnde(Inhalt inhalt, const QString& verzeichnis)
{
    Messbetrieb::melde(Installation(verzeichnis));
    const auto fenster = bildschirm(inhalt);
    zeigeBisGemalt(*fenster);
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
