#include "platform/jet/TextOrder.h"
#include "tests/platform/jet/Scratch.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int Count = 3000;

/// Short texts of letters that are hard to order: case, umlauts, ß, accents, signs that hardly count, blanks, digits.
QStringList nastyTexts()
{
    static const QString letters[] = {u"a"_s,  u"A"_s, u"ä"_s,      u"Ä"_s,       u"á"_s, u"b"_s, u"s"_s,
                                      u"ss"_s, u"ß"_s, u"o"_s,      u"ö"_s,       u"z"_s, u"Z"_s, u" "_s,
                                      u"-"_s,  u"'"_s, u"\u00AD"_s, u"0"_s,       u"9"_s, u"("_s, u"_"_s,
                                      u"."_s,  u"€"_s, u"\u00A0"_s, u"a\u0308"_s, u"😀"_s, u"\t"_s};
    std::mt19937 random(20240305);
    QStringList texts;
    while (texts.size() < Count) {
        QString text;
        for (auto length = random() % 5; length > 0; --length)
            text += letters[random() % std::size(letters)];
        texts += text;
    }
    return texts;
}

/// -1, 0 or 1.
int compare(const QString& left, const QString& right)
{
    const int order = jet::compareTexts(left, right);
    return (order > 0) - (order < 0);
}

} // namespace

TEST(Collation, OrdersTextsTotally)
{
    QStringList sorted = nastyTexts();
    std::ranges::sort(sorted, [](const QString& left, const QString& right) { return compare(left, right) < 0; });
    std::vector<int> classOf{0}; // number of different texts before each one
    for (qsizetype i = 1; i < Count; ++i) {
        const int order = compare(sorted[i - 1], sorted[i]);
        ASSERT_LE(order, 0) << sorted[i - 1].toStdString() << " before " << sorted[i].toStdString();
        classOf.push_back(classOf.back() - order);
    }
    std::mt19937 random(1); // neighbours agree; so must any two that lie apart
    for (int n = 0; n < 20'000; ++n) {
        const auto i = random() % Count;
        const auto k = random() % Count;
        const int distance = classOf[i] - classOf[k];
        ASSERT_EQ(compare(sorted[qsizetype(i)], sorted[qsizetype(k)]), (distance > 0) - (distance < 0))
            << sorted[qsizetype(i)].toStdString() << " and " << sorted[qsizetype(k)].toStdString();
    }
}

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
