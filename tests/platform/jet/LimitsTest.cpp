#include "platform/jet/sqlite/Connection.h"
#include "tests/platform/jet/Scratch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const char* const TooComplex = "3360 Abfrage ist zu komplex.";

class Limits : public testing::Test {
protected:
    std::string ask(const QString& condition) const
    {
        return refusal([&] { m_database->OpenRecordset(u"SELECT N FROM Eins WHERE "_s + condition); });
    }

    Scratch m_scratch;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s, {u"CREATE TABLE Eins (N Long, T Text(20))"_s, u"INSERT INTO Eins VALUES (1, 'a')"_s});
};

} // namespace

TEST_F(Limits, WhatIsTooDeepIsRefused)
{
    const int deep = 10000;
    EXPECT_EQ(ask(QString(deep, u'(') + u"N = 1"_s + QString(deep, u')')), TooComplex);
    EXPECT_EQ(ask(QString(deep, u'(')), TooComplex);
    EXPECT_EQ(ask(u"N = "_s + QString(deep, u'-') + u'1'), TooComplex);
    EXPECT_EQ(ask(u"NOT "_s.repeated(deep) + u"N = 1"_s), TooComplex);
    EXPECT_EQ(ask(u"IIF(N = 1, N, "_s.repeated(deep) + u'N' + QString(deep, u')') + u" = 1"_s), TooComplex);
    EXPECT_EQ(ask(u"N = 1"_s + u" + 1"_s.repeated(deep)), TooComplex);
    EXPECT_EQ(ask(u"1 IN ("_s.repeated(2 * deep)), TooComplex);
    QStringList aliases;
    for (int i = 0; i < 4 * deep; ++i)
        aliases.append(u"(b%1+1) AS b%2"_s.arg(i + 1).arg(i));
    EXPECT_EQ(refusal([&] { m_database->OpenRecordset(u"SELECT "_s + aliases.join(u',') + u" FROM Eins"_s); }),
              TooComplex);
    EXPECT_EQ(ask(u"N = 1"_s + u" AND N = 1"_s.repeated(deep)), TooComplex);
    EXPECT_EQ(ask(QString(1000001, u' ') + u"N = 1"_s), TooComplex);
    EXPECT_EQ(ask(u"T = '"_s + QString(10'000'000, u'x') + u'\''), TooComplex);
}

TEST_F(Limits, WhatAFarmMayNeedIsNot)
{
    EXPECT_EQ(ask(QString(20, u'(') + u"N = 1"_s + QString(20, u')')), "");
    EXPECT_EQ(ask(u"N = 1"_s + u" OR N = 1"_s.repeated(60)), "");
    QString articles = u"'Artikel 0'"_s; // the list of a kind that has been booked for years
    for (int i = 1; i < 5000; ++i)
        articles += u",'Artikel "_s + QString::number(i) + u'\'';
    EXPECT_EQ(ask(u"T IN ("_s + articles + u')'), "");
}

TEST_F(Limits, ANulCharacterEndsNothing)
{
    EXPECT_NE(ask(u"N = 1"_s + QChar(0) + u" AND N = 2"_s), "");
    EXPECT_NE(refusal([&] { m_database->Execute(u"DELETE FROM Eins"_s + QChar(0) + u" WHERE N = 2"_s); }), "");
    EXPECT_EQ(rowsOf(*m_database, u"SELECT Count(*) AS N FROM Eins"_s), "1");
}

TEST_F(Limits, EachCallHasItsStatement)
{
    EXPECT_EQ(refusal([&] { m_database->Execute(u"SELECT N FROM Eins"_s); }),
              "3065 Eine Auswahlabfrage kann nicht ausgeführt werden.");
    EXPECT_NE(refusal([&] { m_database->OpenRecordset(u"DELETE FROM Eins"_s); }), "");
    EXPECT_EQ(refusal([&] { m_database->OpenRecordset(u"Zwei"_s); }).substr(0, 5), "3078 ");
    for (const QString& nothing : {u""_s, u"  \r\n"_s, u";"_s}) {
        EXPECT_NE(refusal([&] { m_database->Execute(nothing); }), "");
        EXPECT_NE(refusal([&] { m_database->OpenRecordset(nothing); }), "");
    }
    EXPECT_EQ(rowsOf(*m_database, u"SELECT Count(*) AS N FROM Eins"_s), "1");
}

TEST_F(Limits, ARefusalThatMayBeTheFilesFaultNamesTheFile)
{
    jet::sqlite::Connection past(m_scratch.path(u"Lager.2024"_s), jet::sqlite::Connection::Mode::Existing, 0);
    past.execute("CREATE TABLE Fremd(Tag DATETEXT);INSERT INTO Fremd VALUES('gestern')");
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM Eins"_s);
    const auto snapshot = m_database->OpenRecordset(u"SELECT * FROM Eins"_s, jet::Kind::Snapshot);
    const std::pair<int, std::function<void()>> calls[] = {
        {3061, [&] { m_database->OpenRecordset(u"SELECT Menge FROM Eins"_s); }},
        {3061, [&] { m_database->Execute(u"UPDATE Eins SET Menge = 1"_s); }},
        {3078, [&] { m_database->OpenRecordset(u"SELECT * FROM Zwei"_s); }},
        {3078, [&] { m_database->OpenRecordset(u"Zwei"_s); }},
        {3464, [&] { m_database->OpenRecordset(u"SELECT * FROM Eins WHERE T = 1"_s); }},
        {3464, [&] { rows->FindFirst(u"T = 1"_s); }},
        {3265, [&] { (*rows)[u"Menge"]; }},
        {3265, [&] { (*rows)[7]; }},
        {3027, [&] { snapshot->AddNew(); }},
        {3421, [&] { m_database->OpenRecordset(u"SELECT Tag FROM Fremd"_s, jet::Kind::Snapshot); }},
        {3421, [&] { m_database->OpenRecordset(u"SELECT Year(Tag) AS J FROM Fremd"_s, jet::Kind::Snapshot); }},
        {3421, [&] { (*m_database->OpenRecordset(u"Fremd"_s))[0]; }},
    };
    for (const auto& [number, call] : calls) {
        try {
            call();
            ADD_FAILURE() << "no refusal " << number;
        } catch (const jet::Error& error) {
            EXPECT_EQ(int(error.number()), number) << error.what();
            EXPECT_TRUE(error.text().endsWith(u" Datei: '"_s + m_scratch.path(u"Lager.2024"_s) + u"'."_s))
                << error.what();
        }
    }
}

TEST_F(Limits, LongTextsAreComparedWithLongPatterns)
{
    const QString text(6'000, u'a');
    const QString half(3'000, u'a');
    const std::pair<QString, bool> patterns[] = {
        {u'*' + half + u'b', false},
        {u'*' + half + u'*', true},
        {half + u'*' + half, true},
        {half + u"?*"_s + half, false},
        {u"*[!a]*"_s + half, false},
        {u"*a"_s.repeated(200) + u"*[b#]"_s, false},
        {u"*a"_s.repeated(200) + u"*[a-c]?"_s, true},
    };
    for (const auto& [pattern, fits] : patterns) {
        const auto rows =
            m_database->OpenRecordset(u"SELECT '"_s + text + u"' LIKE '"_s + pattern + u"' AS X FROM Eins"_s);
        EXPECT_EQ((*rows)[0].toBool(), fits) << pattern.left(20).toStdString();
    }
}

TEST_F(Limits, ARefusalTellsItsPlace)
{
    try {
        m_database->OpenRecordset(u"SELECT N FROM Eins WHERE N AND AND T"_s);
        ADD_FAILURE() << "no refusal";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.position(), 31); // of the second AND
    }
}
