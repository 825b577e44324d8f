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

namespace {

void schreibe(const QString& datei, const QByteArray& inhalt)
{
    QFile ziel(datei);
    ASSERT_TRUE(ziel.open(QIODevice::WriteOnly));
    ASSERT_EQ(ziel.write(inhalt), inhalt.size());
}

QByteArray inhalt(const QString& datei)
{
    QFile quelle(datei);
    return quelle.open(QIODevice::ReadOnly) ? quelle.readAll() : QByteArray("fehlt");
}

} // namespace

TEST(Journaldatei, LiegtImBetriebsordnerDesDatenverzeichnisses)
{
    const Testbetrieb hof;
    EXPECT_EQ(Journaldatei(2024), hof.ort().daten() + u"\\B4711\\Lager.2024"_s);
    EXPECT_EQ(Journaldatei(987), hof.ort().daten() + u"\\B4711\\Lager.0987"_s);

    sys::SaveSetting(u"Datenverzeichnis"_s, u"Verzeichnisname"_s, u"D:\\Daten"_s); // read afresh each time
    modulzustand().Betriebsnummer.clear();
    EXPECT_EQ(Journaldatei(2024), u"D:\\Daten\\B\\Lager.2024"_s);
}

TEST(Journaldatei, JahreSindVierZiffernUndKeineSperrdatei)
{
    const Testbetrieb hof(QDate(2024, 6, 1));
    EXPECT_EQ(journaljahre(), std::vector{2024});
    const QString ordner = hof.ort().betriebsordner(u"4711"_s);
    for (const QString& name : {u"LAGER.2025"_s, u"lager.2023"_s, u"lager.2024"_s, u"Lager.ldb"_s, u"Lager.LDB"_s,
                                u"Lager.abcd"_s, u"Lager.20x4"_s, u"Lager.1"_s, u"Lager"_s, u"Lager.20245"_s,
                                u"Lager.+204"_s, u"Lager.２０２６"_s, u"Lager.vorlage"_s, u"Grund.2027"_s})
        schreibe(ordner + u'/' + name, "x");
    ASSERT_TRUE(QDir(ordner).mkdir(u"Lager.2028"_s)); // who opens it is told that it is no file
    EXPECT_EQ(journaljahre(), (std::vector{2023, 2024, 2025, 2028}));
}

TEST(Journaldatei, EntstehtAlsKopieDerVorlageWennSieFehlt)
{
    const Testbetrieb hof;
    const QString neu = hof.journaldatei(2025);
    stelleJournalBereit(neu);
    EXPECT_EQ(inhalt(neu), inhalt(hof.ort().programm() + u"/Lager.vorlage"_s));

    schreibe(neu, "von einem anderen Programm");
    stelleJournalBereit(neu);
    EXPECT_EQ(inhalt(neu), "von einem anderen Programm");

    const QString vorlage = hof.ort().programm() + u"/Lager.vorlage"_s;
    jet::engine().release();
    QFile::resize(vorlage, QFileInfo(vorlage).size() / 2);
    EXPECT_THROW(stelleJournalBereit(hof.journaldatei(2026)), jet::Error); // a broken year would stay for ever
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
    ASSERT_TRUE(QDir::setCurrent(hof.ort().verzeichnis()) && QDir().mkdir(u"x"_s)); // "x" is no folder of anybody's
    schreibe(u"x/Lager.vorlage"_s, "x");
    QFile::remove(hof.ort().einstellungen() + u"/ZAB - Programme.ini"_s);
    EXPECT_EQ(datenverzeichnis(), u"x"_s);
    EXPECT_FALSE(sys::Exist(ProgrammVerzeichnis() + u"\\Lager.vorlage"_s));
    sys::SaveSetting(u"Datenverzeichnis"_s, u"Verzeichnisname"_s, hof.ort().daten());
    EXPECT_EQ(ProgrammVerzeichnis(), hof.ort().daten());
    ASSERT_TRUE(QDir::setCurrent(vorher));
}
