// The reading of an old database file, and what memory it takes, against the library's own program that
// prints it.

#include "bench/Messung.h"
#include "bench/Speicher.h"

#include "platform/oldfile/File.h"

#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double Behalten = 1 << 20; // bytes that all readings together may leave allocated

QByteArray gedruckt(const QString& programm, const QStringList& worte)
{
    QProcess prozess;
    prozess.start(programm, worte);
    fordere(prozess.waitForFinished(-1) && prozess.exitCode() == 0, programm + u" did not run"_s);
    return prozess.readAllStandardOutput();
}

qint64 gelesen(const QString& datei)
{
    const oldfile::File alt(datei);
    const auto tabellen = alt.contents().tables;
    const auto journal = std::ranges::find(tabellen, u"LAGERJOURNAL"_s, &oldfile::Table::name);
    qint64 zeilen = 0;
    alt.read(*journal, [&](const std::vector<oldfile::Cell>&) { ++zeilen; });
    return zeilen;
}

void messeAltdatei(const Umfang& umfang)
{
    const QTemporaryDir ordner;
    gedruckt(u"tar"_s, {u"-xJf"_s, QStringLiteral(FARM "/betrieb.tar.xz"), u"-C"_s, ordner.path()});
    const QString datei = ordner.filePath(u"daten/B4711/Lager.2025"_s);
    const auto zeilen = gedruckt(u"mdb-export"_s, {u"-H"_s, datei, u"LAGERJOURNAL"_s}).count('\n');
    fordere(gelesen(datei) <= zeilen && gelesen(datei) > 0,
            u"rows are missing"_s); // a memo may have line breaks

    Messung lesung(u"%1 readings of a journal of %2 rows"_s.arg(umfang.zeilen).arg(gelesen(datei)),
                   umfang.zeilen);
    const auto wiederholt = [&](const auto& arbeit) {
        return [&umfang, arbeit] {
            for (int i = 0; i < umfang.zeilen; ++i)
                arbeit();
        };
    };
    lesung.nimm(u"limit: mdb-export"_s, 0, wiederholt([&] {
                    gedruckt(u"mdb-export"_s, {u"-H"_s, datei, u"LAGERJOURNAL"_s});
                }));
    lesung.nimm(u"oldfile::File"_s, 3, wiederholt([&] { gelesen(datei); }));
    const double vorher = vergebenerSpeicher();
    lesung.miss(umfang.runden);
    const double mehr = vergebenerSpeicher() - vorher;
    drucke(u"allocated and kept: %1 KiB"_s.arg(mehr / 1024, 0, 'f', 1));
    fordere(mehr < Behalten, u"the readings keep memory"_s);
}

} // namespace

int main(int argc, char** argv)
{
    return messe(argc, argv, {100, 1, 5}, {500, 1, 5}, messeAltdatei);
}
