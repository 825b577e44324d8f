// Several programs that book into one year file at the same time.

#include "tests/overview/Buchung.h"

#include <QProcess>

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// How many bookings each program makes; a thousand by hand: BUCHUNGEN=1000.
int anzahlBuchungen()
{
    const int anzahl = qEnvironmentVariableIntValue("BUCHUNGEN");
    return anzahl > 0 ? anzahl : 100;
}

class MehrereWirte : public Buchung {
protected:
    std::unique_ptr<QProcess> starte(const QString& name, int anzahl) const
    {
        auto programm = std::make_unique<QProcess>();
        programm->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        programm->start(QStringLiteral(BUCHUNGSWIRT),
                        {hof.ort().verzeichnis(), u"2024"_s, name, QString::number(anzahl)});
        return programm;
    }

    /// Two programs at once, each `anzahl` bookings.
    void bucheZuZweit(int anzahl) const
    {
        constexpr int Minuten = 10;
        const auto erstes = starte(u"A"_s, anzahl);
        const auto zweites = starte(u"B"_s, anzahl);
        for (const auto& programm : {erstes.get(), zweites.get()}) {
            ASSERT_TRUE(programm->waitForFinished(Minuten * 60'000));
            EXPECT_EQ(programm->exitCode(), 0);
        }
    }
};

} // namespace

TEST_F(MehrereWirte, JedeUmbuchungNenntIhrenEigenenPartner)
{
    const int anzahl = anzahlBuchungen();
    bucheZuZweit(anzahl);
    struct Haelfte {
        QString partner, kommentar, menge;
    };
    std::map<QString, Haelfte> zeilen;
    for (const QString& zeile : hof.zeigt(2024, u"SELECT ID, Verfuttert_an, Kommentar, Menge FROM LAGERJOURNAL"
                                                u" WHERE Buchungsart = 'Umbuchung'"_s)) {
        const QStringList zellen = zeile.split(u" | "_s);
        zeilen[zellen[0]] = {zellen[1], zellen[2], zellen[3]};
    }
    EXPECT_EQ(zeilen.size(), std::size_t(4 * anzahl)); // none is lost, none comes twice
    for (const auto& [ID, haelfte] : zeilen) {
        const Haelfte& andere = zeilen[haelfte.partner];
        EXPECT_EQ(andere.partner, ID);
        EXPECT_EQ(andere.kommentar, haelfte.kommentar);
        EXPECT_NE(andere.menge, haelfte.menge);
    }
}
