#include "platform/system/Files.h"
#include "tests/support/Child.h"
#include "tests/support/Print.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

class Files : public testing::Test {
protected:
    QString path(const QString& name) const { return root.filePath(name); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    /// All names in the directory, hidden ones too.
    QStringList names() const
    {
        return QDir(root.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir root;
};

/// "53 Datei nicht gefunden: ..." of the refusal; empty when there is none.
template <class Action>
QString refusal(const Action& action)
{
    try {
        action();
    } catch (const sys::FileError& error) {
        return QString::number(static_cast<int>(error.number())) + u' ' + error.text();
    }
    return {};
}

/// Runs `action` where no file can grow beyond `bytes`; its refusal's number, which must name the file that the user knows.
template <class Action>
int refusalOnFullDisk(rlim_t bytes, const QString& name, const Action& action)
{
    return exitCode(startChild([&] {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead of ending the process
        const rlimit limit{bytes, bytes};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 255;
        const QString told = refusal(action);
        return told.endsWith(u": "_s + name) ? told.section(u' ', 0, 0).toInt() : 254;
    }));
}

} // namespace

TEST_F(Files, DirFollowsTheClassicWildcardRule)
{
    for (const auto& name :
         {u"Lager.2024"_s, u"lager.2023"_s, u"Lager.2025"_s, u"Lager.ldb"_s, u"Lager.1"_s, u"Lager"_s, u"Lager.20245"_s,
          u"Lager.vorlage"_s, u"Lager2024"_s, u"Lager.a.b"_s, u"ÄCKER.txt"_s, u"a[1]"_s}) {
        write(name, {});
    }
    ASSERT_TRUE(QDir(root.path()).mkdir(u"Lager.2026"_s));

    struct Case {
        QString pattern;
        QStringList found;
    };
    const QStringList all = {u"a[1]"_s,       u"Lager"_s,         u"Lager.1"_s,    u"lager.2023"_s,
                             u"Lager.2024"_s, u"Lager.20245"_s,   u"Lager.2025"_s, u"Lager.a.b"_s,
                             u"Lager.ldb"_s,  u"Lager.vorlage"_s, u"Lager2024"_s,  u"ÄCKER.txt"_s};
    const Case cases[] = {
        {u"Lager.????"_s,
         {u"Lager"_s, u"Lager.1"_s, u"lager.2023"_s, u"Lager.2024"_s, u"Lager.2025"_s, u"Lager.ldb"_s}},
        {u"LAGER.2???"_s, {u"lager.2023"_s, u"Lager.2024"_s, u"Lager.2025"_s}},
        {u"Lager.202?"_s, {u"lager.2023"_s, u"Lager.2024"_s, u"Lager.2025"_s}},
        {u"???????.2024"_s, {u"Lager.2024"_s}},
        {u"????.2024"_s, {}},
        {u"Lager?2024"_s, {}}, // a question mark stands for no dot
        {u"*.2024"_s, {u"Lager.2024"_s}},
        {u"lager.*b"_s, {u"Lager.a.b"_s, u"Lager.ldb"_s}},
        {u"*"_s, all},
        {u"*.*"_s, all},
        {u"äcker.*"_s, {u"ÄCKER.txt"_s}},
        {u"a[1]"_s, {u"a[1]"_s}},
        {u"a[?]"_s, {u"a[1]"_s}},
        {u"Lager.2024"_s, {u"Lager.2024"_s}},
        {u""_s, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(sys::Dir(root.path() + u'\\' + c.pattern), c.found) << c.pattern.toStdString();
    EXPECT_EQ(sys::Dir(root.path() + u"\\B1\\Lager.????"_s), QStringList());
}

TEST_F(Files, ACopyReplacesItsTargetInOneStep)
{
    write(u"Lager.vorlage"_s, QByteArray(3'000'000, 'v'));
    write(u"lager.2024"_s, "alt");
    sys::FileCopy(path(u"LAGER.VORLAGE"_s), path(u"Lager.2024"_s));
    sys::FileCopy(path(u"Lager.vorlage"_s), root.path() + u"\\Lager.2025"_s);
    EXPECT_EQ(read(u"lager.2024"_s), QByteArray(3'000'000, 'v'));
    EXPECT_EQ(read(u"Lager.2025"_s), QByteArray(3'000'000, 'v'));
    EXPECT_EQ(names(), QStringList({u"lager.2024"_s, u"Lager.2025"_s, u"Lager.vorlage"_s}));

    sys::Kill(path(u"LAGER.2025"_s));
    EXPECT_EQ(names(), QStringList({u"lager.2024"_s, u"Lager.vorlage"_s}));
}

TEST_F(Files, ACopyToWhereNoneIsNeverReplacesAnother)
{
    write(u"Lager.vorlage"_s, QByteArray(3'000'000, 'v'));
    sys::CopyWhereMissing(path(u"LAGER.VORLAGE"_s), root.path() + u"\\Lager.2024"_s);
    EXPECT_EQ(read(u"Lager.2024"_s), QByteArray(3'000'000, 'v'));

    write(u"Lager.vorlage"_s, "neu");
    sys::CopyWhereMissing(path(u"Lager.vorlage"_s), path(u"lager.2024"_s));
    EXPECT_EQ(read(u"Lager.2024"_s), QByteArray(3'000'000, 'v'));

    sys::beforeFileChange([&](const QString& file) { // another program is quicker, and has booked already
        if (file.endsWith(u"2025")) write(u"Lager.2025"_s, "gebucht");
    });
    sys::CopyWhereMissing(path(u"Lager.vorlage"_s), path(u"Lager.2025"_s));
    EXPECT_EQ(read(u"Lager.2025"_s), "gebucht");
    EXPECT_EQ(names(), QStringList({u"Lager.2024"_s, u"Lager.2025"_s, u"Lager.vorlage"_s}));
}

TEST_F(Files, RefusalsNameTheFile)
{
    write(u"da"_s, "neu");
    write(u"ziel"_s, "alt");
    ASSERT_TRUE(QDir(root.path()).mkdir(u"ordner"_s));
    const QString da = path(u"da"_s);
    const QString ziel = path(u"ziel"_s);
    const auto copy = [](const QString& from, const QString& to) { return refusal([&] { sys::FileCopy(from, to); }); };
    const auto kill = [](const QString& file) { return refusal([&] { sys::Kill(file); }); };

    EXPECT_EQ(copy(path(u"fehlt"_s), ziel), u"53 Datei nicht gefunden: "_s + path(u"fehlt"_s));
    EXPECT_EQ(copy(path(u"fehlt/da"_s), ziel), u"76 Pfad nicht gefunden: "_s + path(u"fehlt/da"_s));
    EXPECT_EQ(copy(da, path(u"fehlt/ziel"_s)), u"76 Pfad nicht gefunden: "_s + path(u"fehlt/ziel"_s));
    EXPECT_EQ(copy(da, path(u"da/ziel"_s)), u"76 Pfad nicht gefunden: "_s + path(u"da/ziel"_s));
    EXPECT_EQ(copy(da, path(u"Ordner"_s)), u"75 Fehler beim Zugriff auf Pfad/Datei: "_s + path(u"ordner"_s));
    EXPECT_EQ(copy(path(u"ordner"_s), ziel), u"75 Fehler beim Zugriff auf Pfad/Datei: "_s + path(u"ordner"_s));
    EXPECT_EQ(copy(u"/dev/null"_s, ziel), u"75 Fehler beim Zugriff auf Pfad/Datei: /dev/null"_s); // others never end
    EXPECT_EQ(copy(da, path(QString(300, u'x'))),
              u"75 Fehler beim Zugriff auf Pfad/Datei: "_s + path(QString(300, u'x')));

    EXPECT_EQ(kill(path(u"fehlt"_s)), u"53 Datei nicht gefunden: "_s + path(u"fehlt"_s));
    EXPECT_EQ(kill(path(u"ordner"_s)), u"75 Fehler beim Zugriff auf Pfad/Datei: "_s + path(u"ordner"_s));

    EXPECT_EQ(read(u"ziel"_s), "alt");
    EXPECT_EQ(names(), QStringList({u"da"_s, u"ordner"_s, u"ziel"_s}));
}

TEST_F(Files, AFullDiskLeavesTheTargetAsItWas)
{
    write(u"klein"_s, QByteArray(5'000, 'k'));
    write(u"gross"_s, QByteArray(5'000'000, 'g'));
    write(u"ziel"_s, "alt");
    for (const auto& source : {u"klein"_s, u"gross"_s}) {
        const int number =
            refusalOnFullDisk(4'096, path(u"ziel"_s), [&] { sys::FileCopy(path(source), path(u"ziel"_s)); });
        EXPECT_EQ(number, static_cast<int>(sys::FileErrorNumber::DiskFull)) << source.toStdString();
        const QString neu = path(u"neu"_s); // not the draft that it is written as
        EXPECT_EQ(refusalOnFullDisk(4'096, neu, [&] { sys::CopyWhereMissing(path(source), neu); }), number);
        EXPECT_EQ(read(u"ziel"_s), "alt");
        EXPECT_EQ(names(), QStringList({u"gross"_s, u"klein"_s, u"ziel"_s})) << "nothing half stays behind";
    }
}

TEST_F(Files, WithoutRightsNothingIsWrittenOrDeleted)
{
    write(u"da"_s, "neu");
    ASSERT_TRUE(QDir(root.path()).mkdir(u"zu"_s));
    write(u"zu/ziel"_s, "alt");
    QFile::setPermissions(root.path(), QFile::Permissions(0x7755));
    QFile::setPermissions(path(u"da"_s), QFile::Permissions(0x6664));
    QFile::setPermissions(path(u"zu/ziel"_s), QFile::Permissions(0x4444));
    QFile::setPermissions(path(u"zu"_s), QFile::Permissions(0x5555));
    const auto numberOf = [](const auto& action) {
        return exitCode(startChild([&] {
            constexpr uid_t Nobody = 65534; // root may write everywhere
            if (geteuid() == 0 && setuid(Nobody) != 0) return 255;
            return refusal(action).section(u' ', 0, 0).toInt();
        }));
    };
    EXPECT_EQ(numberOf([&] { sys::FileCopy(path(u"da"_s), path(u"zu/neu"_s)); }), 70);
    EXPECT_EQ(numberOf([&] { sys::FileCopy(path(u"da"_s), path(u"zu/ziel"_s)); }), 75);
    EXPECT_EQ(numberOf([&] { sys::CopyWhereMissing(path(u"da"_s), path(u"zu/neu"_s)); }), 70);
    EXPECT_EQ(numberOf([&] { sys::Kill(path(u"zu/ziel"_s)); }), 70);
    EXPECT_EQ(read(u"zu/ziel"_s), "alt");
    QFile::setPermissions(path(u"zu"_s), QFile::Permissions(0x7755));
}

TEST_F(Files, WhoKeepsFilesOpenIsAskedToLetGoFirst)
{
    write(u"von"_s, "neu");
    write(u"nach"_s, "alt");
    QStringList asked;
    sys::beforeFileChange([&](const QString& file) {
        asked.append(QFileInfo(file).fileName() + u": "_s + QString::fromUtf8(read(u"nach"_s)));
    });
    sys::FileCopy(path(u"VON"_s), path(u"NACH"_s));
    sys::Kill(path(u"Nach"_s));
    refusal([&] { sys::Kill(path(u"fehlt"_s)); });
    EXPECT_EQ(asked, QStringList({u"von: alt"_s, u"nach: alt"_s, u"nach: neu"_s}));
}
