// Several programs that book into one year file at the same time.

#include "tests/overview/Buchung.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

/// How many transfers each program books; a thousand by hand: BUCHUNGEN=1000.
int anzahlBuchungen()
{
    const int anzahl = qEnvironmentVariableIntValue("BUCHUNGEN");
    return anzahl > 0 ? anzahl : 100;
}

using MehrereWirte = Buchung;

} // namespace

TEST_F(MehrereWirte, JedeUmbuchungNenntIhrenEigenenPartner)
{
    constexpr int Minuten = 10;
    const int anzahl = anzahlBuchungen();
    QProcess programme[2];
    for (QProcess& programm : programme) {
        programm.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        programm.start(
            QStringLiteral(BUCHUNGSWIRT),
            {hof.ort().verzeichnis(), u"2024"_s, &programm == programme ? u"A"_s : u"B"_s, QString::number(anzahl)});
    }
    for (QProcess& programm : programme) {
        ASSERT_TRUE(programm.waitForFinished(Minuten * 60'000));
        EXPECT_EQ(programm.exitCode(), 0);
    }
    const QStringList alle(QString::number(4 * anzahl)); // none is lost, none comes twice
    EXPECT_EQ(hof.zeigt(2024, u"SELECT Count(*) AS N FROM LAGERJOURNAL WHERE Buchungsart = 'Umbuchung'"_s), alle);
    EXPECT_EQ(hof.zeigt(2024,
                        u"SELECT Count(*) AS N FROM LAGERJOURNAL AS A INNER JOIN LAGERJOURNAL AS B"
                        u" ON A.Verfuttert_an = B.ID & '' WHERE A.Buchungsart = 'Umbuchung'"
                        u" AND B.Verfuttert_an = A.ID & '' AND A.Kommentar = B.Kommentar AND A.Menge = -B.Menge"_s),
              alle);
}
