// Half a million real movements: booked into year files, carried forward, and each stock compared with a table that
// another program computed.

#include "tests/support/Handel.h"
#include "bench/Messung.h"
#include "core/Modulzustand.h"
#include "platform/jet/Engine.h"
#include "tests/support/CsvTabelle.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString Betriebsnummer = u"4711"_s;

QString seit(QElapsedTimer& uhr)
{
    return QString::number(static_cast<double>(uhr.restart()) / 1000, 'f', 1) + u" s"_s;
}

/// \returns how many differences there are.
qsizetype vergleiche(const QString& bewegungen, const QString& bestaende)
{
    const QTemporaryDir ordner;
    const Installation ort(ordner.path());
    const auto soll = leseSollbestaende(dateiinhalt(bestaende));
    const QByteArray csv = dateiinhalt(bewegungen);

    QElapsedTimer uhr;
    uhr.start();
    const int anzahl = bucheBewegungen(ort, Betriebsnummer, csv);
    drucke(QString::number(anzahl) + u" movements booked in "_s + seit(uhr));
    qsizetype abweichungen = 0;
    for (const auto& lauf : {u"first"_s, u"second"_s}) {
        const Abgleich abgleich = gleicheAb(Betriebsnummer, soll);
        drucke(lauf + u" carry-forward: "_s + QString::number(abgleich.fragen) + u" stocks and "_s +
               QString::number(abgleich.anfangszeilen) + u" opening rows compared in "_s + seit(uhr) + u", "_s +
               QString::number(abgleich.abweichungen.size()) + u" differences"_s);
        for (const QString& abweichung : abgleich.abweichungen.mid(0, 20))
            drucke(u"  "_s + abweichung);
        abweichungen += abgleich.abweichungen.size();
    }
    jet::engine().release();
    return abweichungen;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication programm(argc, argv);
    QCommandLineParser aufruf;
    aufruf.addHelpOption();
    aufruf.addPositionalArgument(u"MOVEMENTS"_s, u"Table of movements, .csv or .csv.xz."_s);
    aufruf.addPositionalArgument(u"STOCKS"_s, u"Table of the stocks that they must give."_s);
    aufruf.process(programm);
    if (aufruf.positionalArguments().size() != 2) aufruf.showHelp(2);
    try {
        return vergleiche(aufruf.positionalArguments()[0], aufruf.positionalArguments()[1]) == 0 ? 0 : 1;
    } catch (const std::exception& fehler) {
        std::fprintf(stderr, "%s\n", fehler.what());
        return 1;
    }
}
