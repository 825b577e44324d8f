#include "core/farm/Sicherung.h"

#include "platform/system/Files.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Testbetrieb.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace Qt::StringLiterals;

/// Both ways of a copy at once: the one that a booking makes before it, and its coming back into the year.
TEST(Sicherungen, SindGanzOderNichtDaUndKommenGanzOderNichtZurueck)
{
    const Testbetrieb betrieb;
    betrieb.bucht(2024, "05.05. | H1 | Weizen | 12,5 | Zukauf");
    const QString datei = betrieb.journaldatei(2024);
    sichere(datei);
    const Sicherung erste = sicherungen(datei).front();
    betrieb.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Artikel) SELECT Artikel & ID FROM LAGERJOURNAL"_s);
    const QString spaeter = datei + u".spaeter"_s;
    sys::FileCopy(datei, spaeter);

    const auto zeilen = [](const QString& wo) {
        return gezeigt(*jet::Engine().OpenDatabase(wo), u"SELECT Artikel FROM LAGERJOURNAL"_s);
    };
    const auto ordner = QFileInfo(erste.datei).dir();
    stoereUeberall(
        [&] {
            sys::FileCopy(spaeter, datei);
            for (const QString& name : ordner.entryList(QDir::Files))
                if (ordner.filePath(name) != erste.datei) QFile::remove(ordner.filePath(name));
        },
        [&] {
            sichere(datei);
            jet::engine().CopyDatabase(erste.datei, datei);
        },
        [&](bool fertig) {
            const auto alle = sicherungen(datei);
            for (const Sicherung& eine : alle)
                EXPECT_EQ(zeilen(eine.datei), zeilen(eine.datei == erste.datei ? erste.datei : spaeter));
            const auto gefunden = zeilen(datei);
            EXPECT_TRUE(gefunden == zeilen(erste.datei) || (!fertig && gefunden == zeilen(spaeter)))
                << gefunden.join(u", "_s).toStdString();
            EXPECT_EQ(befund(datei), u"ok"_s);
            EXPECT_TRUE(!fertig || alle.size() == 2U);
        });
}
