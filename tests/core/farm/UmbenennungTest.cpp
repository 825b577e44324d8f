#include "core/JahresUbertrag.h"
#include "core/farm/umbenennung/Umbenennungslauf.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

using namespace Qt::StringLiterals;

/// Of two stocks that become one in two years, whatever ends it: a carry-forward brings it to its end first,
/// or nothing was begun.
TEST(Umbenennung, IstGanzOderKommtVorDemNaechstenUebertragZuEnde)
{
    Testbetrieb hof(QDate(2023, 6, 1));
    hof.meldungen().beantworteAlle(sys::Answer::OK);
    hof.bucht(2023, "05.05. | H1 | Weizen | 12,5 | Zukauf\n06.05. | H1 | Winterweizen | 3 | Zukauf\n"
                    "07.05. | H2 | Weizen | 1 | Zukauf");
    hof.bucht(2024, "02.02. | H1 | Weizen | -2 | Verkauf");
    ASSERT_TRUE(JahresUbertrag());
    const Umbenennung umbenennung{Namensart::Artikel, u"Weizen"_s, u"Winterweizen"_s, {}};
    const Umbenennungsort ort{hof.ort().daten(), hof.ort().programm(), hof.ort().anlagen()};
    const auto staende = [&] { return hof.journal(2023) + hof.journal(2024); };
    const auto vorher = staende();
    jet::engine().release();
    for (const int jahr : {2023, 2024})
        sys::FileCopy(hof.journaldatei(jahr), hof.journaldatei(jahr) + u".vorher"_s);
    const auto stelleHer = [&] {
        for (const int jahr : {2023, 2024})
            sys::FileCopy(hof.journaldatei(jahr) + u".vorher"_s, hof.journaldatei(jahr));
    };
    const QStringList nachher = zeilen("05.05. | H1 | Winterweizen | 12,5 | Zukauf\n"
                                       "06.05. | H1 | Winterweizen | 3 | Zukauf\n"
                                       "07.05. | H2 | Winterweizen | 1 | Zukauf\n"
                                       "02.02. | H1 | Winterweizen | -2 | Verkauf\n"
                                       "01.01. | H1 | Winterweizen | 15,5 | Anfangsbestand\n"
                                       "01.01. | H2 | Winterweizen | 1 | Anfangsbestand");
    stoereUeberall(
        stelleHer, [&] { benenneUm(umbenennung, ort); },
        [&](bool fertig) {
            const bool begonnen = unterbrochene(ort.datenverzeichnis).has_value();
            EXPECT_TRUE(!fertig || !begonnen);
            ASSERT_TRUE(JahresUbertrag());
            EXPECT_EQ(hof.meldungen().abgeholt().size(), begonnen ? 1 : 0);
            EXPECT_EQ(staende(), begonnen || fertig || staende() != vorher ? nachher : vorher);
            for (const int jahr : {2023, 2024})
                EXPECT_EQ(befund(hof.journaldatei(jahr)), u"ok"_s);
            jet::engine().release();
        });
}
