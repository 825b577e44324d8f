#include "platform/system/Settings.h"
#include "tests/support/Folder.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString Ini = u"ZAB - Programme.ini"_s;

class Settings : public testing::Test, protected Folder {
protected:
    Settings() { goTo({}); }

    void goTo(const QString& home)
    {
        m_home = home;
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(home)));
    }
    QString told(const QString& begin) const { return begin.isEmpty() ? begin : begin + m_home + u'/' + Ini; }
    static void get() { sys::GetSetting(u"A"_s, u"b"_s); }
    static void save() { sys::SaveSetting(u"A"_s, u"b"_s, u"c"_s); }

    QString m_home;
};

} // namespace

TEST_F(Settings, ReadWhatAPersonWroteAtEveryCall)
{
    const QByteArray text = "\xEF\xBB\xBF[Gemeinsame]\r\n; Pfade=1\r\n# auch=ein Kommentar\r\n\r\n"
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
        {"fehlt", "leer", "vorgabe"},
        {"Gemeinsame", "; Pfade", "vorgabe"},
        {"Gemeinsame", "# auch", "vorgabe"},
    };
    const auto get = [](const char* section, const char* key) {
        return sys::GetSetting(QString::fromUtf8(section), QString::fromUtf8(key), u"vorgabe"_s);
    };
    for (const auto& [section, key, value] : cases)
        EXPECT_EQ(get(section, key), QString::fromUtf8(value)) << key;

    QByteArray longer = text; // by another program, in place, within the same second
    write(Ini, longer.replace("ohne Zeilenende", "mit\r\nneu=es wuchs um mehr als eine Zeile"));
    EXPECT_EQ(get("Gemeinsame", "neu"), u"es wuchs um mehr als eine Zeile"_s);
    write(Ini, longer.replace("mehr als", "nur noch"));
    EXPECT_EQ(get("Gemeinsame", "neu"), u"es wuchs um nur noch eine Zeile"_s);
    write(u"anderes/"_s + Ini, "[A]\nb=1\n");
    EXPECT_TRUE(QFile::rename(path(u"anderes/"_s + Ini), path(u"neu.ini"_s)) && QFile::remove(path(Ini)) &&
                QFile::rename(path(u"neu.ini"_s), path(Ini))); // as programs do that save in one step
    EXPECT_EQ(get("A", "b"), u"1"_s);
    goTo(u"anderes"_s);
    EXPECT_EQ(get("A", "b"), u"vorgabe"_s);
}

TEST_F(Settings, SavedOnesComeBackLiterallyAndLeaveTheRestAlone)
{
    for (const auto& value : {u""_s, u" Blank, Komma; Strich\\ \"Anführung\" %1 [x] #ä=ö "_s, u"\ttab\t"_s, u"𝄞"_s}) {
        sys::SaveSetting(u"Lager Ä"_s, u"Schlüssel"_s, value);
        EXPECT_EQ(sys::GetSetting(u"lager ä"_s, u"SCHLÜSSEL"_s, u"x"_s), value);
    }
    write(Ini, "; Kopf\r\n[A]\r\nb=1\r\nroh=\xFF\r\n\r\n; zu C\r\n[C]\r\nd=4");
    sys::SaveSetting(u"a"_s, u"B"_s, u"eins\r\nzwei\rdrei\nvier"_s);
    sys::SaveSetting(u"A"_s, u"zweiter"_s, u"2"_s);
    sys::SaveSetting(u"c"_s, u"e"_s, u"5"_s);
    sys::SaveSetting(u"F"_s, u"g"_s, u"6"_s);
    EXPECT_EQ(read(Ini),
              "; Kopf\r\n[A]\r\nB=eins zwei drei vier\r\nroh=\xFF\r\nzweiter=2\r\n\r\n; zu C\r\n[C]\r\nd=4\r\n"
              "e=5\r\n\r\n[F]\r\ng=6\r\n");

    const auto writer = [](const QString& section) { // of two programs at once all are kept
        return startChild([section] {
            for (int i = 0; i < 20; ++i)
                sys::SaveSetting(section, QString::number(i), section);
            return 0;
        });
    };
    const pid_t both[] = {writer(u"eins"_s), writer(u"zwei"_s)};
    EXPECT_EQ(exitCode(both[0]) + exitCode(both[1]), 0);
    for (int i = 0; i < 20; ++i)
        for (const auto& section : {u"eins"_s, u"zwei"_s})
            EXPECT_EQ(sys::GetSetting(section, QString::number(i)), section) << i;
}

TEST_F(Settings, ThatCannotBeReadOrWrittenAreRefusedAndStandAsTheyWere)
{
    write(u"voll/"_s + Ini, "[A]\nb=1\n");
    goTo(u"voll"_s);
    EXPECT_TRUE(refuses(&onFullDisk<0>, told(Full), &save));
    EXPECT_EQ(names(u"voll"_s), Ini) << "neither lock nor half";

    QDir().mkpath(path(u"ordner/"_s + Ini));
    QDir().mkpath(path(u"rohre"_s));
    EXPECT_EQ(mkfifo(QFile::encodeName(path(u"rohre/"_s + Ini)), 0600), 0); // nobody is waited for
    const QString there[][3] = {{u"ordner"_s, Access, Access},
                                {u"rohre"_s, Access, Access},
                                {u"voll/"_s + Ini, NoPath, Access},
                                {u"ganz/neu"_s, {}, {}}}; // made at the first save
    for (const auto& [home, read, saved] : there) {
        goTo(home);
        EXPECT_EQ(refusal(&get), told(read));
        EXPECT_EQ(refusal(&save), told(saved));
    }
    EXPECT_EQ(sys::GetSetting(u"A"_s, u"b"_s), u"c"_s);

    const struct {
        const char* name;
        int directory, file; ///< A hexadecimal digit for owner, user, group, others.
        QString read, save;
    } rights[] = {
        {"the file cannot be written", 0x7777, 0x4444, {}, Access},
        {"nor can its directory", 0x5555, 0x4444, {}, Access},
        {"the file cannot be read", 0x7777, 0x6600, Denied, Denied},
        {"the directory cannot be entered", 0x7700, 0x6666, Denied, Access},
    };
    QFile::setPermissions(path(), QFile::Permissions(0x7755));
    goTo(u"voll"_s);
    for (const auto& [name, directory, file, read, saved] : rights) {
        QFile::setPermissions(path(u"voll/"_s + Ini), QFile::Permissions(file));
        QFile::setPermissions(path(u"voll"_s), QFile::Permissions(directory));
        EXPECT_TRUE(refuses(&asNobody, told(read), &get)) << name;
        EXPECT_TRUE(refuses(&asNobody, told(saved), &save)) << name;
        QFile::setPermissions(path(u"voll"_s), QFile::Permissions(0x7700));
        EXPECT_EQ(Folder::read(u"voll/"_s + Ini), "[A]\nb=1\n") << name;
    }
}
