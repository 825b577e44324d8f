#include "tests/platform/jet/Scratch.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// A file may come from a computer whose library orders texts in another way: its name stands in each index.
TEST(Collation, IndicesOfAnotherOrderAreMadeAnew)
{
    const Scratch scratch;
    scratch
        .create(u"Lager.2024"_s, {u"CREATE TABLE T (T Text(20) PRIMARY KEY)"_s, u"INSERT INTO T VALUES ('Straße')"_s})
        ->Close();
    jet::engine().release();
    QFile file(scratch.path(u"Lager.2024"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray bytes = file.readAll();
    const auto name =
        QRegularExpression(u"de_\\d+_[0-9a-f]{8}"_s).match(QString::fromLatin1(bytes)).captured().toLatin1();
    ASSERT_FALSE(name.isEmpty());
    file.seek(0);
    file.write(QByteArray(bytes).replace(name, name.chopped(8) + "00000000"));
    file.close();

    const auto database = scratch.open(u"Lager.2024"_s);
    EXPECT_EQ(refused([&] { database->Execute(u"INSERT INTO T VALUES ('STRASSE')"_s); }), 3022);
    EXPECT_EQ(rowsOf(*database, u"SELECT T FROM T WHERE T = 'strasse'"_s), "Straße");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_NE(file.readAll().indexOf(name), -1);
}
