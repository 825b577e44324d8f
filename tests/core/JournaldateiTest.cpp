#include "core/Journaldatei.h"

#include "core/Modulzustand.h"
#include "core/Verzeichnisse.h"
#include "platform/system/Files.h"
#include "platform/system/Settings.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

TEST(Journaldatei, HeisstNachIhremJahrUndIstKeineSperrdatei)
{
    const Testbetrieb hof;
    const QString ordner = hof.ort().betriebsordner(u"4711"_s);
    EXPECT_EQ(Journaldatei(987), hof.ort().daten() + u"\\B4711\\Lager.0987"_s);
    for (const QString& name :
         {u"LAGER.2025"_s, u"lager.2023"_s, u"lager.2024"_s, u"Lager.ldb"_s, u"Lager.20x4"_s, u"Lager.1"_s,
          u"Lager.20245"_s, u"Lager.２０２６"_s, u"Grund.2027"_s})
        EXPECT_TRUE(QFile(ordner + u'/' + name).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QDir(ordner).mkdir(u"Lager.2028"_s)); // who opens it is told that it is no file
    EXPECT_EQ(journaljahre(), (std::vector{2023, 2024, 2025, 2028}));
}

TEST(Journaldatei, EntstehtAlsKopieDerVorlageNurWennSieFehlt)
{
    const Testbetrieb hof;
    hof.bucht(2024, "01.02. | H1 | Weizen | 3 | Zukauf");
    stelleJournalBereit(hof.journaldatei(2024));
    EXPECT_EQ(hof.journal(2024).size(), 1);
    stelleJournalBereit(hof.journaldatei(2025));
    EXPECT_EQ(hof.journal(2025).size(), 0);

    const QString vorlage = hof.ort().programm() + u"/Lager.vorlage"_s;
    jet::engine().release();
    QFile::resize(vorlage, QFileInfo(vorlage).size() / 2);
    EXPECT_THROW(stelleJournalBereit(hof.journaldatei(2026)),
                 jet::Error); // a broken year would stay for ever
    sys::Kill(vorlage);
    EXPECT_THROW(stelleJournalBereit(hof.journaldatei(2026)), sys::FileError);
    EXPECT_FALSE(QFile::exists(hof.journaldatei(2026)));
}

TEST(Verzeichnisse, DasProgrammverzeichnisWeichtAufDasDatenverzeichnisAus)
{
    const Testbetrieb hof;
    EXPECT_EQ(ProgrammVerzeichnis(), hof.ort().programm());
    sys::SaveSetting(u"Gemeinsame"_s, u"Verzeichnisname"_s, hof.ort().verzeichnis() + u"/fehlt"_s);
    EXPECT_EQ(ProgrammVerzeichnis(), hof.ort().daten());

    const QString vorher = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(hof.ort().verzeichnis()) &&
                QDir().mkdir(u"x"_s)); // "x" is no folder of anybody's
    sys::Kill(hof.ort().einstellungen() + u"/ZAB - Programme.ini"_s);
    sys::SaveSetting(u"Datenverzeichnis"_s, u"Verzeichnisname"_s, u"D:\\Daten"_s); // read afresh each time
    EXPECT_EQ(ProgrammVerzeichnis(), u"D:\\Daten"_s);
    modulzustand().Betriebsnummer.clear();
    EXPECT_EQ(Journaldatei(2024), u"D:\\Daten\\B\\Lager.2024"_s);
    ASSERT_TRUE(QDir::setCurrent(vorher));
}
