// The program killed in the middle of the carry-forward, and two of them at once: every file stays readable, and the next
// run gives the right figures. That this holds at every write is proved with the disturbed disk in SchadensfallTest.

#include "platform/system/Files.h"
#include "tests/host/Lauf.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Jahre[] = {2022, 2023, 2024};
constexpr int Artikel = 2000; // long enough for a kill to hit the writing

/// Number of kills; ZABLAGER_KILLS asks for more.
int unterbrechungen()
{
    const int anzahl = qEnvironmentVariableIntValue("ZABLAGER_KILLS");
    return anzahl > 0 ? anzahl : KILLS;
}

class Unterbrechung : public testing::Test {
protected:
    Unterbrechung()
    {
        for (const int jahr : Jahre)
            hof.richteEin(jahr);
        const auto datei = hof.oeffne(Jahre[0]);
        const auto journal = datei->OpenRecordset(u"LAGERJOURNAL"_s, jet::Kind::Table);
        datei->BeginTrans();
        for (int i = 1; i <= Artikel; ++i) {
            journal->AddNew();
            journal->Set(u"Datum", QDate(Jahre[0], 5, 5));
            journal->Set(u"Artikel", u"Artikel "_s + QString::number(i));
            journal->Set(u"LagerortKurzKu", u"H1"_s);
            journal->Set(u"Menge", i);
            journal->Update();
        }
        datei->Close();
    }

    QString kopie(int jahr) const { return hof.ort().verzeichnis() + u"/Kopie."_s + QString::number(jahr); }
    QStringList aufruf() const
    {
        return {u"uebertrag"_s, hof.ort().verzeichnis(), u"--ab"_s, QString::number(Jahre[0])};
    }

    /// Count of rows, sum of quantities and how many rows are not as the carry-forward writes them.
    QStringList zustand(int jahr) const
    {
        return hof.zeigt(jahr, u"SELECT Count(*), Sum(Menge), Sum(IIF(Buchungsart = 'Anfangsbestand' AND "
                               u"Artikel = 'Artikel ' & Menge AND Datum = #1/1/"_s +
                                   QString::number(jahr) + u"#, 0, 1)) FROM LAGERJOURNAL"_s);
    }

    Testbetrieb hof{QDate(Jahre[0], 1, 1)};
    const QStringList leer{u"0 | NULL | NULL"_s};
    const QStringList fertig{QString::number(Artikel) + u" | "_s + QString::number(Artikel * (Artikel + 1) / 2) +
                             u" | 0"_s};
};

} // namespace

TEST_F(Unterbrechung, JederZeitpunktLaesstLesbareDateienUndDerNaechsteLaufHoltNach)
{
    for (const int jahr : Jahre)
        sys::FileCopy(hof.journaldatei(jahr), kopie(jahr));
    QElapsedTimer uhr;
    uhr.start();
    ASSERT_EQ(zablager(aufruf()).ende, 0);
    const auto dauer = int(uhr.elapsed());
    ASSERT_EQ(zustand(Jahre[2]), fertig);

    int mittenDrin = 0;
    for (int i = 0; i < unterbrechungen(); ++i) {
        for (const int jahr : Jahre)
            sys::FileCopy(kopie(jahr), hof.journaldatei(jahr));
        const int frist = QRandomGenerator::global()->bounded(dauer);
        SCOPED_TRACE(testing::Message() << "killed after " << frist << " ms");
        QProcess prozess;
        prozess.start(QStringLiteral(ZABLAGER_PROGRAM), aufruf());
        if (!prozess.waitForFinished(frist)) prozess.kill();
        prozess.waitForFinished();

        for (const int jahr : {Jahre[1], Jahre[2]}) { // all rows of a year or none, never a half one
            const QStringList halb = zustand(jahr);
            EXPECT_TRUE(halb == fertig || halb == leer) << halb.join(u' ').toStdString();
        }
        mittenDrin += zustand(Jahre[2]) != fertig;
        ASSERT_EQ(zablager(aufruf()).ende, 0);
        for (const int jahr : {Jahre[1], Jahre[2]})
            EXPECT_EQ(zustand(jahr), fertig);
    }
    EXPECT_GT(mittenDrin, 0) << "no kill came in time";
}

TEST_F(Unterbrechung, ZweiUebertraegeZugleichSchreibenJedeZeileEinmal)
{
    QProcess einer, anderer;
    for (QProcess* prozess : {&einer, &anderer})
        prozess->start(QStringLiteral(ZABLAGER_PROGRAM), aufruf());
    for (QProcess* prozess : {&einer, &anderer})
        EXPECT_TRUE(prozess->waitForFinished(120'000));
    for (const int jahr : {Jahre[1], Jahre[2]})
        EXPECT_EQ(zustand(jahr), fertig);
}
