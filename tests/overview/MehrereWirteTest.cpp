// Several programs that book into one year file at the same time.

#include "core/Modulzustand.h"
#include "overview/LagerbestandNeu.h"
#include "tests/support/Bildschirm.h"
#include "tests/szenario/Bedienung.h"
#include "tests/szenario/Musterhof.h"

#include <QApplication>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Anzahl = 25; // transfers of each program

void buche(QWidget& maske, const QString& name)
{
    const auto setze = [&](const char* feld, const QString& text) {
        geheIn(*maske.findChild<QWidget*>(QLatin1StringView(feld)));
        tippe(text);
        druecke(u"Tab"_s);
    };
    setze("drpLagerort", u"H1"_s);
    setze("drpGruppe", u"Pflanzl"_s);
    setze("drpLagerorte2", u"H2"_s);
    for (int i = 1; i <= Anzahl; ++i) {
        setze("drpArtikel", u"Weizen"_s);
        setze("txtMenge", u"1"_s);
        setze("txtKommentar", name + QString::number(i));
        druecke(u"Strg+Eingabe"_s);
    }
    druecke(u"Esc"_s);
}

/// What the second program does, on the farm of the first.
void bucheAuf(const QString& hof, const QString& name)
{
    const Installation ort(hof);
    ort.verwende();
    modulzustand().Betriebsnummer = u"4711"_s;
    modulzustand().Stichdatum = QDate(2024, 6, 1);
    modulzustand().Lagerpasswort = u";pwd=quenlor"_s;
    modulzustand().Anlagenverzeichnis = ort.anlagen();
    Meldungsprotokoll meldungen;
    meldungen.beantworteAlle(sys::Answer::Retry); // what was locked
    const sys::MessageScope umleitung(meldungen);
    LagerbestandNeu fenster;
    fenster.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenster));
    imNaechstenFenster([&](QWidget& maske) { buche(maske, name); });
    tippe(u"u"_s);
}

} // namespace

TEST(MehrereWirte, JedeUmbuchungNenntIhrenEigenenPartner)
{
    if (qEnvironmentVariableIsSet("WIRT")) return bucheAuf(qEnvironmentVariable("HOF"), qEnvironmentVariable("WIRT"));
    const Musterhof hof;
    qputenv("HOF", hof.ort().verzeichnis().toUtf8());
    QProcess programme[2];
    for (const char* const name : {"A", "B"}) {
        qputenv("WIRT", name);
        programme[*name - 'A'].start(QApplication::applicationFilePath(), {u"--gtest_filter=MehrereWirte.*"_s});
    }
    for (QProcess& programm : programme) {
        ASSERT_TRUE(programm.waitForFinished());
        EXPECT_EQ(programm.exitCode(), 0) << programm.readAll().toStdString();
    }
    const QStringList alle(QString::number(4 * Anzahl)); // none is lost, none comes twice
    EXPECT_EQ(hof.zeigt(2024, u"SELECT Count(*) FROM LAGERJOURNAL WHERE Buchungsart = 'Umbuchung'"_s), alle);
    EXPECT_EQ(hof.zeigt(2024,
                        u"SELECT Count(*) FROM LAGERJOURNAL AS A INNER JOIN LAGERJOURNAL AS B"
                        u" ON A.Verfuttert_an = B.ID & '' WHERE A.Buchungsart = 'Umbuchung'"
                        u" AND B.Verfuttert_an = A.ID & '' AND A.Kommentar = B.Kommentar AND A.Menge = -B.Menge"_s),
              alle);
}
