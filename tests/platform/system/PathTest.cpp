#include "platform/system/Path.h"
#include "platform/system/Files.h"
#include "platform/system/WindowsDirectory.h"
#include "tests/support/Print.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Paths : public testing::Test {
protected:
    void SetUp() override
    {
        for (const auto& directory : {u"Daten/B4711"_s, u"Größe/Äcker"_s, u"beide"_s, u"BEIDE"_s}) {
            ASSERT_TRUE(QDir(root.path()).mkpath(directory));
        }
        for (const auto& file : {u"Lager.vorlage"_s, u"Daten/B4711/lager.2024"_s, u"Größe/Äcker/.versteckt"_s,
                                 u"BEIDE/x"_s, u"ab"_s, u"aB"_s}) {
            QFile made(root.filePath(file));
            ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        }
    }

    QTemporaryDir root;
};

} // namespace

TEST_F(Paths, AreFoundWhateverTheirCase)
{
    struct Case {
        QString asked, found;
        bool exists = true;
    };
    const Case cases[] = {
        {u"\\Lager.Vorlage"_s, u"/Lager.vorlage"_s},
        {u"\\DATEN\\b4711\\LAGER.2024"_s, u"/Daten/B4711/lager.2024"_s},
        {u"\\Daten/b4711\\"_s, u"/Daten/B4711/"_s},
        {u"\\\\Daten\\B4711"_s, u"//Daten/B4711"_s},
        {u"\\daten\\..\\lager.VORLAGE"_s, u"/Daten/../Lager.vorlage"_s},
        {u"\\GRÖSSE"_s, u"/GRÖSSE"_s, false},
        {u"\\GRÖßE\\äCKER\\.Versteckt"_s, u"/Größe/Äcker/.versteckt"_s},
        {u"\\ab"_s, u"/ab"_s},
        {u"\\AB"_s, u"/aB"_s}, // several other spellings: the first in alphabetical order
        {u"\\Beide\\X"_s, u"/BEIDE/x"_s},
        {u"\\beide\\X"_s, u"/beide/X"_s, false}, // the exact directory wins although the file is in the other one
        {u"\\daten\\B1\\lager.2024"_s, u"/Daten/B1/lager.2024"_s, false},
        {u"\\lager.vorlage\\daten"_s, u"/Lager.vorlage/daten"_s, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.asked.toStdString());
        EXPECT_EQ(sys::localPath(root.path() + c.asked), root.path() + c.found);
        EXPECT_EQ(sys::Exist(root.path() + c.asked), c.exists ? -1 : 0);
        EXPECT_EQ(~sys::Exist(root.path() + c.asked), c.exists ? 0 : -1);
    }
}

TEST_F(Paths, RelativeAndForeignOnesAreAnswered)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(root.path()));
    EXPECT_EQ(sys::localPath(u"DATEN\\b4711"_s), u"Daten/B4711"_s);
    EXPECT_EQ(sys::Exist(u"lager.VORLAGE"_s), -1);
    EXPECT_EQ(sys::localPath(u"D:\\Daten\\B4711"_s), u"D:/Daten/B4711"_s);
    EXPECT_EQ(sys::Exist(QString()), 0);
    EXPECT_EQ(sys::Dir(u"LAGER.???????"_s), QStringList(u"Lager.vorlage"_s));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST(WindowsDirectory, IsThatOfTheEnvironmentUnlessItIsTooLong)
{
    const QByteArray longest(144, 'w');
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"C:\\Windows", "C:\\Windows"}, {longest, longest}, {longest + 's', ""}, {"", ""}};
    for (const auto& [set, found] : cases) {
        qputenv("windir", set);
        EXPECT_EQ(sys::WindowsVerzeichnis(), QString::fromLatin1(found));
    }
    qunsetenv("windir");
    EXPECT_EQ(sys::WindowsVerzeichnis(), u""_s);
}
