#include "tests/platform/jet/Scratch.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// Short texts of letters that are hard to order: case, umlauts, ß, accents, signs that hardly count, blanks, digits.
QStringList nastyTexts(int count)
{
    static const QString letters[] = {u"a"_s,  u"A"_s, u"ä"_s,      u"Ä"_s,       u"á"_s, u"b"_s, u"s"_s,
                                      u"ss"_s, u"ß"_s, u"o"_s,      u"ö"_s,       u"z"_s, u"Z"_s, u" "_s,
                                      u"-"_s,  u"'"_s, u"\u00AD"_s, u"0"_s,       u"9"_s, u"("_s, u"_"_s,
                                      u"."_s,  u"€"_s, u"\u00A0"_s, u"a\u0308"_s, u"😀"_s, u"\t"_s};
    std::mt19937 random(20240305);
    QStringList texts;
    while (texts.size() < count) {
        QString text;
        for (auto length = random() % 5; length > 0; --length)
            text += letters[random() % std::size(letters)];
        texts += text;
    }
    return texts;
}

QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

class Collation : public testing::Test {
protected:
    Collation()
    {
        m_database->Execute(u"INSERT INTO Eins VALUES (1)"_s);
        m_database->BeginTrans();
        const auto rows = m_database->OpenRecordset(u"T"_s);
        for (const QString& text : nastyTexts(3000)) {
            rows->AddNew();
            rows->Set(u"T", text);
            rows->Update();
        }
        m_database->CommitTrans();
    }

    /// -1, 0 or 1, by the engine's own < and =.
    int compare(const QString& left, const QString& right) const
    {
        const QString a = quoted(left);
        const QString b = quoted(right);
        const auto answer = m_database->OpenRecordset(u"SELECT "_s + a + u" < "_s + b + u" AS L, "_s + a + u" = "_s +
                                                      b + u" AS E, "_s + a + u" > "_s + b + u" AS G FROM Eins"_s);
        const bool less = (*answer)[u"L"].toBool();
        const bool equal = (*answer)[u"E"].toBool();
        const bool greater = (*answer)[u"G"].toBool();
        EXPECT_EQ(less + equal + greater, 1) << a.toStdString() << " and " << b.toStdString();
        return greater - less;
    }

    QStringList column(const QString& sql) const
    {
        QStringList texts;
        for (const auto rows = m_database->OpenRecordset(sql); !rows->Eof(); rows->MoveNext())
            texts += (*rows)[0].toText();
        return texts;
    }

    Scratch m_scratch;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s, {u"CREATE TABLE T (ID Counter PRIMARY KEY, T Text(20))"_s, u"CREATE TABLE Eins (N Long)"_s});
};

} // namespace

TEST_F(Collation, OrdersTextsTotally)
{
    const QStringList sorted = column(u"SELECT T FROM T ORDER BY T"_s);
    const QStringList different = column(u"SELECT DISTINCT T FROM T"_s);
    ASSERT_EQ(sorted.size(), 3000);
    qsizetype classes = 1;
    std::vector<qsizetype> classOf{0}; // number of different texts before each one
    for (qsizetype i = 1; i < sorted.size(); ++i) {
        const int order = compare(sorted[i - 1], sorted[i]);
        ASSERT_LE(order, 0) << quoted(sorted[i - 1]).toStdString() << " before " << quoted(sorted[i]).toStdString();
        if (order < 0) ++classes;
        classOf.push_back(classes - 1);
    }
    EXPECT_EQ(different.size(), classes);

    std::mt19937 random(1); // neighbours agree; so must any two that lie apart
    for (int n = 0; n < 4000; ++n) {
        const auto i = static_cast<qsizetype>(random() % 3000);
        const auto k = static_cast<qsizetype>(random() % 3000);
        const auto distance = classOf[static_cast<size_t>(i)] - classOf[static_cast<size_t>(k)];
        ASSERT_EQ(compare(sorted[i], sorted[k]), (distance > 0) - (distance < 0))
            << quoted(sorted[i]).toStdString() << " and " << quoted(sorted[k]).toStdString();
    }

    m_database->Execute(u"CREATE INDEX I ON T (T)"_s);
    EXPECT_EQ(column(u"SELECT T FROM T ORDER BY T"_s), sorted);
    EXPECT_EQ(column(u"SELECT DISTINCT T FROM T"_s).size(), classes);
}

// A file may come from a computer whose library orders texts in another way: its name stands in each index.
TEST(CollationVersion, IndicesOfAnotherOrderAreMadeAnew)
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
    EXPECT_EQ(refusal([&] { database->Execute(u"INSERT INTO T VALUES ('STRASSE')"_s); }).substr(0, 5), "3022 ");
    EXPECT_EQ(rowsOf(*database, u"SELECT T FROM T WHERE T = 'strasse'"_s), "Straße");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_NE(file.readAll().indexOf(name), -1);
}

// Most texts are plain ASCII and are compared by a shorter way. An equal letter in front that is none takes both texts
// the long way and must not change their order.
TEST_F(Collation, ShortAndLongWayAgree)
{
    QStringList plain;
    for (const QString& text : column(u"SELECT T FROM T"_s)) {
        const bool ascii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
        if (ascii && !text.trimmed().isEmpty()) plain += text;
    }
    ASSERT_GT(plain.size(), 300);
    std::mt19937 random(2);
    for (int n = 0; n < 3000; ++n) {
        const QString& a = plain[static_cast<qsizetype>(random()) % plain.size()];
        const QString& b = plain[static_cast<qsizetype>(random()) % plain.size()];
        ASSERT_EQ(compare(a, b), compare(u'ö' + a, u'ö' + b))
            << quoted(a).toStdString() << " and " << quoted(b).toStdString();
    }
}
