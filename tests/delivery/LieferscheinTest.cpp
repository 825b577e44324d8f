// Under the screen: the file that a note is printed from, and that numbers are given together.

#include "core/Modulzustand.h"
#include "delivery/Liefereinstellungen.h"
#include "delivery/Lieferscheindatei.h"
#include "delivery/Lieferscheinnummern.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Fremdprogramm.h"
#include "tests/platform/jet/Plattenstoerung.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QString Nummern = u"SELECT Lieferscheinnummer FROM LAGERJOURNAL ORDER BY ID"_s;

void verkauft(const Testbetrieb& hof)
{
    hof.bucht(2024, "03.05. | H1 | Heu | -3 | Verkauf\n"
                    "01.05. | H1 | Hafer | -4 | Verkauf\n"
                    "02.05. | H1 | Mais | -5 | Verkauf");
    hof.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Uberstallt_alt = 'BERGER', Artikelart = 'Futtermittel'"_s);
}

} // namespace

TEST(Lieferschein, SeineDateiHatWasEigeneFormulareBrauchen)
{
    Testbetrieb hof;
    verkauft(hof);
    hof.fuehreAus(2024,
                  u"UPDATE LAGERJOURNAL SET Einheit = '', Menge = NULL, Preis = 7, Lieferscheinnummer = 4"_s);
    const QString datei = hof.ort().verzeichnis() + u"/druck.mdb"_s;
    Lieferschein schein{QDate(2024, 5, 3), u"BERGER"_s, 4, u"  Hof  "_s, u"   "_s, {}, u" Danke "_s};
    for (const char* preis :
         {"NULL", "7"}) { // the second one replaces the first, which another program reads
        std::unique_ptr<Fremdprogramm> leser;
        if (schein.mitPreis) leser = std::make_unique<Fremdprogramm>(datei);
        ASSERT_TRUE(baueLieferscheindatei(datei, 2024, schein));
        const auto druck = jet::engine().OpenDatabase(datei);
        EXPECT_EQ(gezeigt(*druck, u"SELECT * FROM Uberschrift"_s),
                  QStringList(u"NULL | Hof | NULL | NULL | 03.05.2024 | BERGER | 4 | Danke"_s));
        EXPECT_EQ(
            gezeigt(*druck, u"SELECT * FROM Journal"_s),
            QStringList(u"NULL | Heu | Futtermittel | 0 | %1 | NULL | NULL"_s.arg(QLatin1StringView(preis))));
        schein.mitPreis = true;
    }
    modulzustand().Betriebsname = QString(101, u'x');
    ergaenzeLiefereinstellungen(*hof.oeffne(2024));
    EXPECT_EQ(hof.zeigt(2024, u"SELECT LEN(LieferscheinZeile1) FROM Liefereinstellungen"_s),
              QStringList(u"100"_s));
    hof.meldungen().beantworteAlle(sys::Answer::Ignore);
    sys::Kill(hof.journaldatei(2024));
    EXPECT_FALSE(baueLieferscheindatei(datei, 2024, schein)); // what is built half is not left
    ASSERT_TRUE(QDir().mkdir(datei));                         // in whose place nothing can be made
    EXPECT_FALSE(baueLieferscheindatei(datei, 2024, schein));
    EXPECT_TRUE(hof.meldungen().abgeholt().value(1).contains(u"druck.mdb"_s));
}

TEST(Lieferschein, JedeStoerungDerPlatteLaesstAlleNummernOderKeine)
{
    Testbetrieb hof;
    verkauft(hof);
    hof.meldungen().beantworteAlle(sys::Answer::Abort);
    const QString kopie = hof.ort().verzeichnis() + u"/Kopie"_s;
    sys::FileCopy(hof.journaldatei(2024), kopie);
    const QStringList keine = hof.zeigt(2024, Nummern), alle{u"3"_s, u"1"_s, u"2"_s};
    const auto vergib = [] {
        if (!Lieferscheinnummern(2024).vergib()) throw std::runtime_error("the user left");
    };
    stoereUeberall([&] { sys::FileCopy(kopie, hof.journaldatei(2024)); }, vergib,
                   [&](bool fertig) {
                       const QStringList gefunden = hof.zeigt(2024, Nummern);
                       EXPECT_TRUE(gefunden == alle || (!fertig && gefunden == keine))
                           << gefunden.join(u' ').toStdString();
                       EXPECT_EQ(befund(hof.journaldatei(2024)), u"ok"_s);
                       vergib();
                       EXPECT_EQ(hof.zeigt(2024, Nummern), alle);
                   });
}

TEST(Lieferschein, ZweiProgrammeZugleichVergebenNichtDieselbeNummer)
{
    const Testbetrieb hof;
    verkauft(hof);
    const Fremdprogramm anderes(hof.journaldatei(2024),
                                "UPDATE LAGERJOURNAL SET Lieferscheinnummer = 1 WHERE ID = 1");
    EXPECT_TRUE(Lieferscheinnummern(2024).vergib());
    EXPECT_EQ(hof.zeigt(2024, Nummern), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
}
