#include "platform/system/Settings.h"
#include "tests/platform/system/Folder.h"

#include <QLockFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString Ini = u"ZAB - Programme.ini"_s;

class Settings : public testing::Test, protected Folder {
protected:
    Settings() { goTo({}); }

    void goTo(const QString& home) const { qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(home))); }
    static QString told(const QString& what, const QString& home)
    {
        return what.isEmpty() ? what : what + u": %/"_s + home + u'/' + Ini;
    }
    static QString get(const char* section, const char* key)
    {
        return sys::GetSetting(QString::fromUtf8(section), QString::fromUtf8(key), u"vorgabe"_s);
    }
    static void save() { sys::SaveSetting(u"A"_s, u"b"_s, u"c"_s); }
};

} // namespace

TEST_F(Settings, ReadWhatAPersonWroteAtEveryCall)
{
    const QByteArray text =
        "\xEF\xBB\xBF[Gemeinsame]\r\n; Pfade=1\r\n#2=auch ein Kommentar\r\n\r\n"
        "Verzeichnisname=D:\\Höfe\\B;1,\"2\"=x \r\n  Abstand = zwei Leerzeichen\r\nleer=\r\n"
        "kein Wert\r\nleer=zweiter\r\n[DATENVERZEICHNIS]\r\nverzeichnisname=/srv\\daten\r\n"
        "[ gemeinsame ]\r\nspät=ohne Zeilenende";
    write(Ini, text);
    const char* const cases[][3] = {
        {"gemeinsame", "VERZEICHNISNAME", "D:\\Höfe\\B;1,\"2\"=x "},
        {"Gemeinsame", "Abstand", " zwei Leerzeichen"},
        {"Gemeinsame", "leer", ""},
        {"Datenverzeichnis", "Verzeichnisname", "/srv\\daten"},
        {"GEMEINSAME", "SPÄT", "ohne Zeilenende"},
        {"Gemeinsame", "kein Wert", "vorgabe"},
        {"Gemeinsame", "#2", "vorgabe"},
        {"Gemeinsame", "; Pfade", "vorgabe"},
    };
    for (const auto& [section, key, value] : cases)
        EXPECT_EQ(get(section, key), QString::fromUtf8(value)) << key;

    write(Ini,
          QByteArray(text).replace("zwei", "drei")); // by another program, in place, within the same second
    EXPECT_EQ(get("Gemeinsame", "Abstand"), u" drei Leerzeichen"_s);
    write(u"anderes/"_s + Ini, "[A]\nb=1\n");
    EXPECT_TRUE(QFile::rename(path(u"anderes/"_s + Ini), path(u"neu.ini"_s)) && QFile::remove(path(Ini)) &&
                QFile::rename(path(u"neu.ini"_s), path(Ini))); // as programs do that save in one step
    EXPECT_EQ(get("A", "b"), u"1"_s);
    goTo(u"anderes"_s);
    EXPECT_EQ(get("A", "b"), u"vorgabe"_s);
}

TEST_F(Settings, SavedOnesComeBackLiterallyAndLeaveTheRestAlone)
{
    for (const auto& value :
         {u""_s, u" Blank, Komma; Strich\\ \"Anführung\" %1 [x] #ä=ö "_s, u"\ttab\t"_s, u"𝄞"_s}) {
        sys::SaveSetting(u"Lager Ä"_s, u"Schlüssel"_s, value);
        EXPECT_EQ(sys::GetSetting(u"lager ä"_s, u"SCHLÜSSEL"_s, u"x"_s), value);
    }
    write(Ini, "; Kopf\r\n[A]\r\nb=1\r\nroh=\xFF\r\n\r\n; zu C\r\n[C]\r\nd=4");
    sys::SaveSetting(u"a"_s, u"B"_s, u"eins\r\nzwei\rdrei\nvier"_s);
    sys::SaveSetting(u"A"_s, u"zweiter"_s, u"2"_s);
    sys::SaveSetting(u"c"_s, u"e"_s, u"5"_s);
    sys::SaveSetting(u"F"_s, u"g"_s, u"6"_s);
    EXPECT_EQ(
        read(Ini),
        "; Kopf\r\n[A]\r\nB=eins zwei drei vier\r\nroh=\xFF\r\nzweiter=2\r\n\r\n; zu C\r\n[C]\r\nd=4\r\n"
        "e=5\r\n\r\n[F]\r\ng=6\r\n");

    const auto lock = [&] { return (new QLockFile(path(Ini + u".lock"_s)))->tryLock(0) ? 0 : 1; };
    EXPECT_EQ(exitCode(startChild(lock)), 0); // one that dies while saving, with the lock in hand
    QList<pid_t> both;                        // programs that save at once: all is kept
    for (const auto& section : {u"eins"_s, u"zwei"_s})
        both.append(startChild([&] {
            for (int i = 0; i < 20; ++i)
                sys::SaveSetting(section, QString::number(i), section);
            return 0;
        }));
    EXPECT_EQ(exitCode(both[0]) + exitCode(both[1]), 0);
    EXPECT_EQ(read(Ini).count("=eins\r\n") + read(Ini).count("=zwei\r\n"), 2 * 20);
}

TEST_F(Settings, ThatCannotBeReadOrWrittenAreRefusedAndStandAsTheyWere)
{
    const QString denied = u"70 Zugriff verweigert"_s, faulty = u"75 Fehler beim Zugriff auf Pfad/Datei"_s;
    write(u"voll/"_s + Ini, "[A]\nb=1\n");
    goTo(u"voll"_s);
    EXPECT_TRUE(refusesFullDisk(0, u"61 Datenträger voll: %/voll/"_s + Ini, &save));
    EXPECT_EQ(QDir(path(u"voll"_s)).entryList(QDir::Files | QDir::Hidden), QStringList(Ini))
        << "neither lock nor half";

    QDir().mkpath(path(u"ordner/"_s + Ini));
    QDir().mkpath(path(u"rohre"_s));
    EXPECT_EQ(mkfifo(QFile::encodeName(path(u"rohre/"_s + Ini)), 0600), 0); // nobody is waited for
    const QString there[][3] = {{u"ordner"_s, faulty, faulty},
                                {u"rohre"_s, faulty, faulty},
                                {u"voll/"_s + Ini, u"76 Pfad nicht gefunden"_s, faulty},
                                {u"ganz/neu"_s, {}, {}}}; // made at the first save
    for (const auto& [home, got, saved] : there) {
        goTo(home);
        EXPECT_EQ(refusal([] { get("A", "b"); }), told(got, home));
        EXPECT_EQ(refusal(&save), told(saved, home));
    }
    EXPECT_EQ(get("A", "b"), u"c"_s);

    // of the directory and of the file, a digit for owner, user, group, others
    const std::tuple<const char*, int, int, QString, QString> rights[] = {
        {"the file cannot be written", 0x7777, 0x4444, {}, faulty},
        {"nor can its directory", 0x5555, 0x4444, {}, faulty},
        {"the file cannot be read", 0x7777, 0x6600, denied, denied},
        {"the directory cannot be entered", 0x7700, 0x6666, denied, faulty},
    };
    QFile::setPermissions(path(), QFile::Permissions(0x7755));
    goTo(u"voll"_s);
    for (const auto& [name, directory, file, got, saved] : rights) {
        QFile::setPermissions(path(u"voll/"_s + Ini), QFile::Permissions(file));
        QFile::setPermissions(path(u"voll"_s), QFile::Permissions(directory));
        EXPECT_TRUE(refusesNobody(told(got, u"voll"_s), [] { get("A", "b"); })) << name;
        EXPECT_TRUE(refusesNobody(told(saved, u"voll"_s), &save)) << name;
        QFile::setPermissions(path(u"voll"_s), QFile::Permissions(0x7700));
        EXPECT_EQ(read(u"voll/"_s + Ini), "[A]\nb=1\n") << name;
    }
}
