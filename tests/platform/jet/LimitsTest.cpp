#include "platform/jet/sqlite/Connection.h"
#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Limits : public testing::Test {
protected:
    int ask(const QString& condition, const QString& columns = u"N"_s) const
    {
        return refused([&] { m_database->OpenRecordset(u"SELECT "_s + columns + u" FROM Eins WHERE "_s + condition); });
    }

    Scratch m_scratch;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s, {u"CREATE TABLE Eins (N Long, T Text(20))"_s, u"INSERT INTO Eins VALUES (1, 'a')"_s});
};

QString numbered(const QString& text, int count, QChar between)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(QString(text).replace(u"%2"_s, QString::number(i + 1)).replace(u"%1"_s, QString::number(i)));
    return texts.join(between);
}

} // namespace

TEST_F(Limits, WhatIsTooComplexIsRefusedWhatAFarmMayNeedIsNot)
{
    constexpr int Deep = 10'000;
    constexpr int TooComplex = 3360;
    const struct {
        QString condition;
        int refused = TooComplex;
        QString columns = u"N"_s;
    } cases[] = {
        {QString(Deep, u'(') + u"N = 1"_s + QString(Deep, u')')},
        {QString(Deep, u'(')},
        {u"N = "_s + QString(Deep, u'-') + u'1'},
        {u"NOT "_s.repeated(Deep) + u"N = 1"_s},
        {u"IIF(N = 1, N, "_s.repeated(Deep) + u'N' + QString(Deep, u')') + u" = 1"_s},
        {u"N = 1"_s + u" + 1"_s.repeated(Deep)},
        {u"1 IN ("_s.repeated(2 * Deep)},
        {u"N = 1"_s + u" AND N = 1"_s.repeated(Deep)},
        {QString(1'000'001, u' ') + u"N = 1"_s},
        {u"N = 1"_s, TooComplex, numbered(u"(b%2+1) AS b%1"_s, 4 * Deep, u',')},
        {u"N = 1"_s, TooComplex, numbered(u"b%2 & b%2 AS b%1"_s, 20, u',') + u",T AS b20"_s},
        {u"N = 1"_s, TooComplex, numbered(u"N AS c%1"_s, 256, u',')},
        {u"N = 1 GROUP BY "_s + numbered(u"N+%1"_s, 11, u',')},
        {u"N = 1"_s, 0, numbered(u"N AS c%1"_s, 255, u',')},
        {u"N = 1 GROUP BY "_s + numbered(u"N+%1"_s, 9, u',') + u",N"_s, 0},
        {QString(20, u'(') + u"N = 1"_s + QString(20, u')'), 0},
        {u"N = 1"_s + u" OR N = 1"_s.repeated(60), 0},
        {u"T IN ("_s + numbered(u"'Artikel %1'"_s, 5000, u',') + u')', 0}, // a kind that has been booked for years
        {u"N = 1"_s + QChar(0) + u" AND N = 2"_s, 3075},                   // which ends nothing
        {u"T = 'a"_s + QChar(0) + u"'"_s, 3075},
    };
    for (const auto& given : cases)
        EXPECT_EQ(ask(given.condition, given.columns), given.refused)
            << given.columns.left(20).toStdString() << ' ' << given.condition.left(20).toStdString();
}

TEST_F(Limits, EachCallHasItsStatementAndKeepsIt)
{
    EXPECT_EQ(refused([&] { m_database->Execute(u"SELECT N FROM Eins"_s); }), 3065);
    EXPECT_EQ(refused([&] { m_database->OpenRecordset(u"DELETE FROM Eins"_s); }), 3129);
    EXPECT_EQ(refused([&] { m_database->OpenRecordset(u"Zwei"_s); }), 3078);
    EXPECT_EQ(refused([&] { m_database->OpenRecordset(u"SELECT N FROM Eins"_s, jet::Kind::Table); }), 3078);
    for (const QString& nothing : {u""_s, u"  \r\n"_s, u";"_s}) {
        EXPECT_NE(refused([&] { m_database->Execute(nothing); }), 0);
        EXPECT_NE(refused([&] { m_database->OpenRecordset(nothing); }), 0);
    }
    const auto rows = m_database->OpenRecordset(u"SELECT N FROM Eins"_s);
    for (int i = 0; i < 130; ++i) { // more than are kept, each twice
        const QString sql = u"SELECT N + "_s + QString::number(i % 10) + u" AS N%1 FROM Eins"_s.arg(i);
        for (int twice = 0; twice < 2; ++twice)
            EXPECT_EQ(rowsOf(*m_database, sql), std::to_string(1 + i % 10));
        rows->FindFirst(u"N = N + %1 - %1"_s.arg(i % 10) + u" - 0"_s.repeated(i % 60));
        EXPECT_FALSE(rows->NoMatch());
    }
    EXPECT_EQ((*rows)[0].toLong(), 1);
}

TEST_F(Limits, ARefusalNamesTheFileAndThePlace)
{
    jet::sqlite::Connection past(m_scratch.path(u"Lager.2024"_s), jet::sqlite::Connection::Mode::Existing, 0);
    past.execute("CREATE TABLE Fremd(Tag DATETEXT);INSERT INTO Fremd VALUES('gestern')");
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM Eins"_s);
    const auto snapshot = m_database->OpenRecordset(u"SELECT * FROM Eins"_s, jet::Kind::Snapshot);
    const std::pair<int, std::function<void()>> calls[] = {
        {3078, [&] { m_database->OpenRecordset(u"Zwei"_s); }},
        {3464, [&] { rows->FindFirst(u"T = 1"_s); }},
        {3265, [&] { (*rows)[u"Menge"]; }},
        {3265, [&] { (*rows)[2]; }},
        {3265, [&] { (*rows)[-1]; }},
        {3027, [&] { snapshot->AddNew(); }},
        {3421, [&] { m_database->OpenRecordset(u"SELECT Year(Tag) AS J FROM Fremd"_s, jet::Kind::Snapshot); }},
    };
    const std::string named = " Datei: '" + m_scratch.path(u"Lager.2024"_s).toStdString() + "'.";
    for (const auto& [number, call] : calls) {
        const std::string told = refusal(call);
        EXPECT_EQ(told.substr(0, 5), std::to_string(number) + ' ');
        EXPECT_TRUE(told.ends_with(named)) << told;
    }
    try {
        m_database->OpenRecordset(u"SELECT N FROM Eins WHERE N AND AND T"_s);
        ADD_FAILURE() << "no refusal";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.position(), 31); // of the second AND
    }
}
