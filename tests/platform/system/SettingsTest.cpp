#include "platform/system/Settings.h"
#include "tests/support/Child.h"
#include "tests/support/Print.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class Settings : public testing::Test {
protected:
    void SetUp() override { qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path())); }

    QString path() const { return home.filePath(u"ZAB - Programme.ini"_s); }

    void write(const QByteArray& bytes) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray read() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    QTemporaryDir home;
};

/// The number of a refusal, which must name the file; 0: not refused.
template <class Action>
int refusal(const Action& action)
{
    try {
        action();
    } catch (const sys::FileError& error) {
        EXPECT_TRUE(error.text().contains(u"ZAB - Programme.ini"_s)) << error.what();
        return static_cast<int>(error.number());
    }
    return 0;
}

int numberOfRefusedSave()
{
    return refusal([] { sys::SaveSetting(u"A"_s, u"b"_s, u"c"_s); });
}

int numberOfRefusedRead()
{
    return refusal([] { sys::GetSetting(u"A"_s, u"b"_s); });
}

} // namespace

TEST_F(Settings, ReadWhatAPersonWrote)
{
    write("\xEF\xBB\xBF[Gemeinsame]\r\n"
          "; Pfade\r\n"
          "# auch ein Kommentar\r\n"
          "\r\n"
          "Verzeichnisname=D:\\Höfe\\B;1,\"2\"=x \r\n"
          "  Abstand = zwei Leerzeichen\r\n"
          "leer=\r\n"
          "kein Wert\r\n"
          "leer=zweiter\r\n"
          "[DATENVERZEICHNIS]\r\n"
          "verzeichnisname=/srv\\daten\r\n"
          "[ gemeinsame ]\r\n"
          "spät=ohne Zeilenende");
    struct Case {
        QString section, key, value;
    };
    const Case cases[] = {
        {u"Gemeinsame"_s, u"Verzeichnisname"_s, u"D:\\Höfe\\B;1,\"2\"=x "_s},
        {u"gemeinsame"_s, u"VERZEICHNISNAME"_s, u"D:\\Höfe\\B;1,\"2\"=x "_s},
        {u"Gemeinsame"_s, u"Abstand"_s, u" zwei Leerzeichen"_s},
        {u"Gemeinsame"_s, u"leer"_s, u""_s},
        {u"Datenverzeichnis"_s, u"Verzeichnisname"_s, u"/srv\\daten"_s},
        {u"GEMEINSAME"_s, u"SPÄT"_s, u"ohne Zeilenende"_s},
        {u"Gemeinsame"_s, u"kein Wert"_s, u"vorgabe"_s},
        {u"Gemeinsame"_s, u"fehlt"_s, u"vorgabe"_s},
        {u"fehlt"_s, u"leer"_s, u"vorgabe"_s},
        {u"Gemeinsame"_s, u"; Pfade"_s, u"vorgabe"_s},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(sys::GetSetting(c.section, c.key, u"vorgabe"_s), c.value)
            << c.section.toStdString() << c.key.toStdString();
    }
}

TEST_F(Settings, AreReadAfreshAtEveryCall)
{
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"x"_s);
    write("[A]\nb=1\n");
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"1"_s);
    write("[A]\nb=2\n"); // same size, same second
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"2"_s);
    write("[A]\na=0\nb=lang\n");
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"lang"_s);
    ASSERT_TRUE(QFile::rename(path(), path() + u".alt"_s)); // another program saves by putting a new file in its place
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"x"_s);
    write("[A]\na=0\nb=neu\n\n");
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"neu"_s);
    const QTemporaryDir other;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(other.path()));
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s, u"x"_s), u"x"_s);
}

TEST_F(Settings, SavedOnesComeBackLiterallyAndLeaveTheRestAlone)
{
    for (const auto& value : {u""_s, u" Blank, Komma; Strich\\ \"Anführung\" %1 [x] #ä=ö "_s, u"\ttab\t"_s, u"𝄞"_s}) {
        sys::SaveSetting(u"Lager Ä"_s, u"Schlüssel"_s, value);
        EXPECT_EQ(sys::GetSetting(u"lager ä"_s, u"SCHLÜSSEL"_s, u"x"_s), value);
    }
    sys::SaveSetting(u"A"_s, u"b"_s, u"eins\r\nzwei\rdrei\nvier"_s);
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s), u"eins zwei drei vier"_s);

    write("; Kopf\r\n[A]\r\nb=1\r\nroh=\xFF\r\n\r\n[C]\r\nd=4");
    sys::SaveSetting(u"a"_s, u"B"_s, u"neu"_s);
    sys::SaveSetting(u"A"_s, u"zweiter"_s, u"2"_s);
    sys::SaveSetting(u"c"_s, u"e"_s, u"5"_s);
    sys::SaveSetting(u"F"_s, u"g"_s, u"6"_s);
    EXPECT_EQ(read(), "; Kopf\r\n[A]\r\nB=neu\r\nroh=\xFF\r\nzweiter=2\r\n\r\n[C]\r\nd=4\r\ne=5\r\n\r\n[F]\r\ng=6\r\n");
}

TEST_F(Settings, OfTwoProgramsAtOnceAreAllKept)
{
    constexpr int Count = 40;
    const auto writer = [](const QString& section) {
        for (int i = 0; i < Count; ++i)
            sys::SaveSetting(section, u"k"_s + QString::number(i), QString::number(i));
        return 0;
    };
    const pid_t first = startChild([&] { return writer(u"eins"_s); });
    const pid_t second = startChild([&] { return writer(u"zwei"_s); });
    EXPECT_EQ(exitCode(first), 0);
    EXPECT_EQ(exitCode(second), 0);
    for (const auto& section : {u"eins"_s, u"zwei"_s}) {
        for (int i = 0; i < Count; ++i) {
            EXPECT_EQ(sys::GetSetting(section, u"k"_s + QString::number(i)), QString::number(i))
                << section.toStdString();
        }
    }
}

TEST_F(Settings, AProgramThatDiedWhileSavingLocksNobodyOut)
{
    const pid_t child = startChild([&] {
        auto* lock = new QLockFile(path() + u".lock"_s); // never unlocked
        return lock->tryLock(0) ? 0 : 1;
    });
    ASSERT_EQ(exitCode(child), 0);
    ASSERT_TRUE(QFile::exists(path() + u".lock"_s));
    EXPECT_EQ(numberOfRefusedSave(), 0);
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s), u"c"_s);
}

TEST_F(Settings, ThatCannotBeWrittenAreRefusedAndStandAsTheyWere)
{
    write("[A]\nb=1\n");
    const pid_t child = startChild([] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{0, 0};
        if (setrlimit(RLIMIT_FSIZE, &full) != 0) return 255;
        return numberOfRefusedSave();
    });
    EXPECT_EQ(exitCode(child), 61);
    EXPECT_EQ(read(), "[A]\nb=1\n");
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << "neither lock nor half file stays";

    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path())); // a file where the configuration home should be
    EXPECT_EQ(numberOfRefusedSave(), 75);
    EXPECT_EQ(numberOfRefusedRead(), 76);

    ASSERT_TRUE(QDir(home.path()).mkpath(u"neu/ZAB - Programme.ini"_s)); // a directory where the file should be
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(u"neu"_s)));
    EXPECT_EQ(numberOfRefusedSave(), 75);
    EXPECT_EQ(numberOfRefusedRead(), 75);

    ASSERT_TRUE(QDir(home.path()).mkdir(u"rohre"_s)); // a pipe: nobody is waited for
    ASSERT_EQ(mkfifo(QFile::encodeName(home.filePath(u"rohre/ZAB - Programme.ini"_s)), 0600), 0);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(u"rohre"_s)));
    EXPECT_EQ(numberOfRefusedRead(), 75);
    EXPECT_EQ(numberOfRefusedSave(), 75);

    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(u"ganz/neu"_s))); // made on the first save
    EXPECT_EQ(numberOfRefusedRead(), 0);
    EXPECT_EQ(numberOfRefusedSave(), 0);
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s), u"c"_s);
}

TEST_F(Settings, WithoutRightsAreRefusedAndStandAsTheyWere)
{
    struct Case {
        const char* name;
        int directory, file; ///< Permissions as Qt writes them, a hexadecimal digit for owner, user, group, others.
        int read, save;      ///< Numbers of the refusals.
    };
    const Case cases[] = {
        {"the file cannot be written", 0x7777, 0x4444, 0, 75},
        {"nor can its directory", 0x5555, 0x4444, 0, 75},
        {"the file cannot be read", 0x7777, 0x6600, 70, 70},
        {"the directory cannot be entered", 0x7700, 0x6666, 70, 75},
    };
    write("[A]\nb=1\n");
    for (const Case& c : cases) {
        QFile::setPermissions(path(), QFile::Permissions(c.file));
        QFile::setPermissions(home.path(), QFile::Permissions(c.directory));
        const auto asNobody = [](int (*number)()) {
            return exitCode(startChild([number] {
                constexpr uid_t Nobody = 65534; // root may read and write everywhere
                if (geteuid() == 0 && setuid(Nobody) != 0) return 255;
                return number();
            }));
        };
        EXPECT_EQ(asNobody(&numberOfRefusedRead), c.read) << c.name;
        EXPECT_EQ(asNobody(&numberOfRefusedSave), c.save) << c.name;
        QFile::setPermissions(home.path(), QFile::Permissions(0x7700));
        EXPECT_EQ(read(), "[A]\nb=1\n") << c.name;
    }
}
