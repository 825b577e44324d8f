#include "core/Journaldatei.h"
#include "core/Modulzustand.h"
#include "core/inventur/Zaehlung.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Testbetrieb.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

/// Journal and file of counts cannot commit together: whatever ends the booking, going on books the rest.
TEST(Inventur, BuchtWasGezaehltWurdeEinmalWasImmerDazwischenKommt)
{
    const Testbetrieb betrieb;
    betrieb.bucht(2024, "05.05. | H1 | Weizen | 12,5 | Zukauf\n06.05. | H2 | Hafer | 3 | Zukauf\n"
                        "07.05. | H1 | Mais | 1 | Zukauf");
    modulzustand().Lagerdatei = betrieb.journaldatei(2024);
    const QString datei = betrieb.journaldatei(2024);
    const QString vorher = datei + u".vorher"_s;
    const QString zettel = QFileInfo(datei).path() + u"/Zaehlung.2024"_s;
    sys::FileCopy(datei, vorher);
    const auto zaehle = [&] {
        Zaehldatei neue(datei);
        neue.setTag(QDate(2024, 6, 1));
        neue.merke({u"Weizen"_s, u"H1"_s}, 10);
        neue.merke({u"Hafer"_s, u"H2"_s}, 3);
    };
    const auto buche = [&] {
        const auto journal = oeffneJournaldatei();
        Zaehldatei offene(datei);
        offene.lies(*journal);
        auto zeilen = zaehlliste(*journal, QDate(2024, 6, 1));
        for (Zaehlzeile& zeile : zeilen)
            if (const auto zahl = offene.offene().find(zeile.paar); zahl != offene.offene().end())
                zeile.Gezaehlt = zahl->second;
        if (!offene.offene().empty()) bucheZaehlung(zeilen, offene);
    };
    stoereUeberall(
        [&] {
            sys::FileCopy(vorher, datei);
            QFile::remove(zettel);
            zaehle();
        },
        buche,
        [&](bool fertig) {
            buche();
            if (fertig) { // as where the end comes between the two
                zaehle();
                Zaehldatei notierte(datei);
                notierte.lies(*oeffneJournaldatei());
                notierte.merkeBuchung(3, {{{u"Weizen"_s, u"H1"_s}, -2.5}, {{u"Hafer"_s, u"H2"_s}, 0}});
                buche();
            }
            jet::engine().release();
            EXPECT_FALSE(QFile::exists(zettel));
            EXPECT_EQ(gezeigt(*jet::Engine().OpenDatabase(datei, u";pwd=quenlor"_s),
                              u"SELECT Artikel, Menge FROM LAGERJOURNAL WHERE ID > 3"_s),
                      zeilen("Hafer | 0\nWeizen | -2,5"));
            EXPECT_EQ(befund(datei), u"ok"_s);
        });
}
