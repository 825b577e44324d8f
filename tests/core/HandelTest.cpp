#include "tests/support/Handel.h"
#include "tests/support/CsvTabelle.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString Ordner = QStringLiteral(TEST_DATA "/handel/");

} // namespace

TEST(Handel, EchteBewegungenErgebenDieBestaendeEinesAnderenProgramms)
{
    const Testbetrieb hof(QDate(2010, 12, 1));
    ASSERT_EQ(bucheBewegungen(hof.ort(), u"4711"_s, dateiinhalt(Ordner + u"bewegungen.csv"_s)), 20'000);
    const auto soll = leseSollbestaende(dateiinhalt(Ordner + u"schlussbestand.csv"_s));
    ASSERT_EQ(soll.size(), 870u);
    for (const int lauf : {1, 2}) { // a second run must change nothing
        SCOPED_TRACE(lauf);
        const Abgleich abgleich = gleicheAb(u"4711"_s, soll);
        EXPECT_EQ(abgleich.abweichungen, QStringList());
        EXPECT_EQ(abgleich.fragen, 870);
        EXPECT_EQ(abgleich.anfangszeilen, 143);
    }
}
