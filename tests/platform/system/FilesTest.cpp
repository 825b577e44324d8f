#include "platform/system/Files.h"
#include "platform/system/Path.h"
#include "platform/system/Surroundings.h"
#include "platform/system/WindowsDirectory.h"
#include "tests/platform/system/Folder.h"

using namespace Qt::StringLiterals;

namespace {

class Files : public testing::Test, protected Folder {};

const QString Access = u"75 Fehler beim Zugriff auf Pfad/Datei: %/"_s,
              NoPath = u"76 Pfad nicht gefunden: %/"_s, NoFile = u"53 Datei nicht gefunden: %/"_s,
              Denied = u"70 Zugriff verweigert: %/"_s, Full = u"61 Datenträger voll: %/"_s;

} // namespace

TEST_F(Files, AreFoundWhateverTheirCase)
{
    for (const auto& name : {u"Lager.vorlage"_s, u"Daten/B4711/lager.2024"_s, u"Größe/Äcker/.versteckt"_s,
                             u"BEIDE/x"_s, u"beide/y"_s, u"ab"_s, u"aB"_s})
        write(name, {});
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"\\DATEN\\b4711\\LAGER.2024", "/Daten/B4711/lager.2024", true},
        {"\\\\Daten\\B4711", "//Daten/B4711", true},
        {"\\daten\\..\\lager.VORLAGE", "/Daten/../Lager.vorlage", true},
        {"\\GRÖSSE", "/GRÖSSE", false},
        {"\\GRÖßE\\äCKER\\.Versteckt", "/Größe/Äcker/.versteckt", true},
        {"\\ab", "/ab", true},
        {"\\AB", "/aB", true}, // several other spellings: the first in alphabetical order
        {"\\Beide\\X", "/BEIDE/x", true},
        {"\\beide\\X", "/beide/X", false}, // the exact directory wins although the file is in the other one
        {"\\daten\\B1\\lager.2024", "/Daten/B1/lager.2024", false},
        {"\\lager.vorlage\\daten", "/Lager.vorlage/daten", false},
    };
    for (const auto& [asked, found, exists] : cases) {
        EXPECT_EQ(sys::localPath(path() + QString::fromUtf8(asked)), path() + QString::fromUtf8(found));
        EXPECT_EQ(sys::Exist(path() + QString::fromUtf8(asked)), exists ? -1 : 0) << asked;
    }
    EXPECT_EQ(sys::localPath(u"D:\\Daten\\B4711"_s), u"D:/Daten/B4711"_s);
    EXPECT_EQ(sys::Exist({}), 0);
    const QString before = QDir::currentPath();
    QDir::setCurrent(path());
    EXPECT_EQ(sys::localPath(u"DATEN\\b4711"_s), u"Daten/B4711"_s);
    EXPECT_EQ(sys::Dir(u"LAGER.???????"_s), QStringList(u"Lager.vorlage"_s));
    QDir::setCurrent(before);

    for (const auto& [set, found] :
         {std::pair("C:\\Windows"_ba, "C:\\Windows"_ba), {QByteArray(145, 'w'), ""_ba}}) {
        qputenv("windir", set);
        EXPECT_EQ(sys::WindowsVerzeichnis(),
                  QString::fromLatin1(found)); // programs of the family keep 144 letters
    }
}

TEST_F(Files, DirFollowsTheClassicWildcardRule)
{
    for (const auto& name : {u"Lager.2024"_s, u"lager.2023"_s, u"Lager.ldb"_s, u"Lager.1"_s, u"Lager"_s,
                             u"Lager.20245"_s, u"Lager2024"_s, u"Lager.a.b"_s, u"ÄCKER.txt"_s, u"a[1]"_s})
        write(u"Hof/"_s + name, {});
    QDir().mkpath(path(u"Hof/Lager.2026"_s));
    const char* const cases[][2] = {
        {"Lager.????", "Lager Lager.1 lager.2023 Lager.2024 Lager.ldb"},
        {"???????.2024", "Lager.2024"},
        {"Lager?2024", ""}, // a question mark stands for no dot
        {"lager.*b", "Lager.a.b Lager.ldb"},
        {"*.*",
         "a[1] Lager Lager.1 lager.2023 Lager.2024 Lager.20245 Lager.a.b Lager.ldb Lager2024 ÄCKER.txt"},
        {"äcker.*", "ÄCKER.txt"},
        {"a[?]", "a[1]"},
        {"", ""},
    };
    for (const auto& [pattern, found] : cases)
        EXPECT_EQ(sys::Dir(path() + u"\\HOF\\"_s + QString::fromUtf8(pattern)).join(u' '),
                  QString::fromUtf8(found));
    EXPECT_EQ(sys::Dir(path() + u"\\B1\\Lager.????"_s), QStringList());
}

TEST_F(Files, ACopyIsWholeOrNotThere)
{
    const QByteArray large(3'000'000, 'v');
    write(u"Lager.vorlage"_s, large);
    write(u"lager.2024"_s, "alt");
    QStringList asked; // who keeps files open lets go of them first
    sys::beforeFileChange([&](const QString& file) {
        asked.append(QFileInfo(file).fileName() + u' ' + QString::fromUtf8(read(u"lager.2024"_s).left(3)));
        if (file.endsWith(u"2026")) write(u"Lager.2026"_s, "gebucht"); // another program is quicker
    });
    sys::FileCopy(path(u"LAGER.VORLAGE"_s), path() + u"\\Lager.2024"_s);
    EXPECT_EQ(read(u"lager.2024"_s), large);
    sys::CopyWhereMissing(path(u"LAGER.VORLAGE"_s), path() + u"\\Lager.2025"_s);
    EXPECT_EQ(read(u"Lager.2025"_s), large);
    write(u"Lager.vorlage"_s, "neu");
    sys::CopyWhereMissing(path(u"Lager.vorlage"_s), path(u"lager.2025"_s));
    EXPECT_EQ(read(u"Lager.2025"_s), large);
    sys::CopyWhereMissing(path(u"Lager.vorlage"_s), path(u"Lager.2026"_s));
    EXPECT_EQ(read(u"Lager.2026"_s), "gebucht");
    sys::Kill(path(u"LAGER.2025"_s));
    EXPECT_EQ(names(), u"lager.2024 Lager.2026 Lager.vorlage"_s);
    EXPECT_EQ(asked.join(u", "_s), u"Lager.vorlage alt, lager.2024 alt, Lager.vorlage vvv, Lager.2025 vvv, "
                                   u"Lager.vorlage vvv, Lager.2026 vvv, Lager.2025 vvv"_s);
    for (const int size : {5'000, 5'000'000}) {
        write(u"voll"_s, QByteArray(size, 'g'));
        const QString full = path(u"voll"_s), old = path(u"Lager.2026"_s), fresh = path(u"neu"_s);
        EXPECT_TRUE(refusesFullDisk(4096, Full + u"Lager.2026"_s,
                                    [&] { sys::FileCopy(full, old); })); // not its draft
        EXPECT_TRUE(refusesFullDisk(4096, Full + u"neu"_s, [&] { sys::CopyWhereMissing(full, fresh); }));
    }
    EXPECT_EQ(read(u"Lager.2026"_s), "gebucht");
    EXPECT_EQ(names(), u"lager.2024 Lager.2026 Lager.vorlage voll"_s) << "nothing half stays behind";
    sys::surroundings().letGo.clear();
}

TEST_F(Files, RefusalsNameTheFileAndChangeNone)
{
    write(u"da"_s, "neu");
    write(u"ziel"_s, "alt");
    write(u"ordner/ziel"_s, "alt");
    const QString longest(300, u'x');
    const QString changes[][3] = {
        // copies, and without a target deletions
        {u"fehlt"_s, u"ziel"_s, NoFile + u"fehlt"_s},
        {u"fehlt/da"_s, u"ziel"_s, NoPath + u"fehlt/da"_s},
        {u"da"_s, u"fehlt/ziel"_s, NoPath + u"fehlt/ziel"_s},
        {u"da"_s, u"da/ziel"_s, NoPath + u"da/ziel"_s},
        {u"da"_s, u"Ordner"_s, Access + u"ordner"_s},
        {u"ordner"_s, u"ziel"_s, Access + u"ordner"_s},
        {u"da"_s, longest, Access + longest},
        {u"/dev/zero"_s, u"ziel"_s, QString(Access).replace(u"%/"_s, u"/dev/zero"_s)}, // endless
        {u"fehlt"_s, {}, NoFile + u"fehlt"_s},
        {u"ordner"_s, {}, Access + u"ordner"_s},
    };
    const auto change = [&](const QString& from, const QString& to) {
        return [=, this] { to.isEmpty() ? sys::Kill(path(from)) : sys::FileCopy(path(from), path(to)); };
    };
    for (const auto& [from, to, told] : changes)
        EXPECT_EQ(refusal(change(from, to)), told);

    QFile::setPermissions(path(), QFile::Permissions(0x7755));
    QFile::setPermissions(path(u"da"_s), QFile::Permissions(0x6664));
    QFile::setPermissions(path(u"ordner/ziel"_s), QFile::Permissions(0x4444));
    QFile::setPermissions(path(u"ordner"_s), QFile::Permissions(0x5555));
    EXPECT_TRUE(refusesNobody(Denied + u"ordner/neu"_s, change(u"da"_s, u"ordner/neu"_s)));
    EXPECT_TRUE(refusesNobody(Access + u"ordner/ziel"_s, change(u"da"_s, u"ordner/ziel"_s)));
    EXPECT_TRUE(refusesNobody(Denied + u"ordner/ziel"_s, change(u"ordner/ziel"_s, {})));
    QFile::setPermissions(path(u"ordner"_s), QFile::Permissions());
    EXPECT_TRUE(refusesNobody(Denied + u"ordner"_s, [this] { sys::DirEntries(path(u"ordner/*"_s)); }));
    QFile::setPermissions(path(u"ordner"_s), QFile::Permissions(0x7755));
    EXPECT_EQ(read(u"ziel"_s) + read(u"ordner/ziel"_s), "altalt");
    EXPECT_EQ(names(), u"da ordner ziel"_s);
}
