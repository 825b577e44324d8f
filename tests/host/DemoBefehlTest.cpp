// zablager demo: a farm is there as a whole or not at all.

#include "host/Installation.h"
#include "platform/jet/Engine.h"
#include "tests/host/Lauf.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class DemoBefehl : public testing::Test {
protected:
    ~DemoBefehl() override { jet::engine().release(); }

    Lauf demo() const { return zablager({u"demo"_s, hof.verzeichnis()}); }
    /// The names of all files, hidden ones too.
    QStringList dateien() const
    {
        QStringList alle;
        QDirIterator suche(hof.verzeichnis(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (suche.hasNext())
            alle.append(suche.next());
        alle.sort();
        return alle;
    }
    QByteArray inhalt() const
    {
        QByteArray alles;
        for (const QString& name : dateien()) {
            QFile datei(name);
            EXPECT_TRUE(datei.open(QIODevice::ReadOnly)) << name.toStdString();
            alles += datei.readAll();
        }
        return alles;
    }
    /// What the year files hold, ascending by year.
    QStringList stand() const
    {
        QStringList alles;
        const QDir jahre(hof.betriebsordner(u"4711"_s));
        for (const QString& datei : jahre.entryList({u"Lager.*"_s}, QDir::Files)) {
            alles += gezeigt(*jet::engine().OpenDatabase(jahre.filePath(datei)),
                             u"SELECT Count(*), Sum(Menge), Max(ID) FROM LAGERJOURNAL"_s);
        }
        return alles;
    }

    QTemporaryDir ordner;
    Installation hof{ordner.path() + u"/Höfe und Äcker"_s};
};

} // namespace

TEST_F(DemoBefehl, EinBetriebDenEsGibtBleibt)
{
    ASSERT_EQ(demo().ende, 0);
    EXPECT_EQ(stand().size(), 4);
    const QByteArray vorher = inhalt();
    const Lauf zweiter = demo();
    EXPECT_EQ(zweiter.ende, 0);
    EXPECT_EQ(zweiter.ausgabe,
              u"In '"_s + hof.verzeichnis() + u"' gibt es den Betrieb 4711 schon. Er bleibt, wie er ist.\n"_s);
    EXPECT_EQ(inhalt(), vorher);
    ASSERT_TRUE(QDir(hof.lieferscheinformulare()).removeRecursively()); // as an older program made it
    ASSERT_EQ(demo().ende, 0);
    EXPECT_EQ(inhalt(), vorher);

    const Installation fremd(ordner.path() + u"/fremd"_s); // the master data of another farm are not the demo farm's
    ASSERT_EQ(zablager({u"einrichten"_s, fremd.verzeichnis(), u"--betrieb"_s, u"12"_s}).ende, 0);
    const Lauf verweigert = zablager({u"demo"_s, fremd.verzeichnis()});
    EXPECT_EQ(verweigert.ende, 1);
    EXPECT_TRUE(verweigert.fehler.contains(u"andere Betriebe (12)"_s)) << verweigert.fehler.toStdString();
    EXPECT_EQ(fremd.betriebe(), QStringList(u"12"_s));
}

TEST_F(DemoBefehl, NachEinemHalbenLaufBeginntDerNaechsteVonVorn)
{
    ASSERT_EQ(demo().ende, 0);
    const QStringList ganz = stand();
    const QStringList alleDateien = dateien();
    jet::engine().release();

    // All but the farm's folder, the last to be moved, and the building site of a run that got no further.
    ASSERT_TRUE(QDir(hof.betriebsordner(u"4711"_s)).removeRecursively());
    const QString baustelle = hof.verzeichnis() + u"/demo.neu"_s;
    ASSERT_TRUE(QDir().mkpath(baustelle + u"/daten/B4711"_s));
    ASSERT_TRUE(QFile(baustelle + u"/daten/B4711/Lager.1999"_s).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile(baustelle + u"/daten/Grundstamm.mdb"_s).open(QIODevice::WriteOnly));
    EXPECT_EQ(demo().ende, 0);
    EXPECT_EQ(stand(), ganz);
    EXPECT_EQ(dateien(), alleDateien);
}

TEST_F(DemoBefehl, DerBetriebErscheintErstWennAllesAndereDaIst)
{
    for (const QString& ordnername : {u"programm"_s, u"anlagen"_s, u"einstellungen"_s}) {
        SCOPED_TRACE(ordnername.toStdString());
        const Installation ort(ordner.path() + u"/ohne "_s + ordnername);
        ASSERT_TRUE(QDir().mkpath(ort.verzeichnis()));
        const QString hindernis = ort.verzeichnis() + u'/' + ordnername; // a file where a directory must be
        ASSERT_TRUE(QFile(hindernis).open(QIODevice::WriteOnly));
        const Lauf lauf = zablager({u"demo"_s, ort.verzeichnis()});
        EXPECT_EQ(lauf.ende, 1);
        EXPECT_TRUE(lauf.fehler.contains(hindernis)) << lauf.fehler.toStdString();
        EXPECT_EQ(ort.betriebe(), QStringList());
        EXPECT_FALSE(QDir(ort.verzeichnis() + u"/demo.neu"_s).exists());

        ASSERT_TRUE(QFile::remove(hindernis));
        EXPECT_EQ(zablager({u"demo"_s, ort.verzeichnis()}).ende, 0);
        EXPECT_EQ(ort.betriebe(), QStringList(u"4711"_s));
    }
}

TEST_F(DemoBefehl, WannImmerErAbgebrochenWirdEinHalberBetriebEntstehtNicht)
{
    QElapsedTimer uhr;
    uhr.start();
    ASSERT_EQ(demo().ende, 0);
    const qint64 dauer = uhr.elapsed();
    const QStringList ganz = stand();
    constexpr int Abbrueche = KILLS;
    int mittenDrin = 0;
    for (int i = 0; i < Abbrueche; ++i) {
        SCOPED_TRACE(i);
        jet::engine().release();
        ASSERT_TRUE(QDir(hof.verzeichnis()).removeRecursively());
        QProcess prozess;
        prozess.start(QStringLiteral(ZABLAGER_PROGRAM), {u"demo"_s, hof.verzeichnis()});
        if (!prozess.waitForFinished(int(dauer * i / Abbrueche))) prozess.kill();
        prozess.waitForFinished();
        const bool istDa = hof.betriebe() == QStringList(u"4711"_s);
        if (istDa) {
            EXPECT_EQ(stand(), ganz);
        }
        mittenDrin += !istDa;
        EXPECT_EQ(demo().ende, 0);
        EXPECT_EQ(stand(), ganz);
        EXPECT_EQ(hof.betriebe(), QStringList(u"4711"_s));
    }
    EXPECT_GT(mittenDrin, 0) << "no kill came in time";
}
