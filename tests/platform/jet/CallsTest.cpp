#include "platform/jet/NumberFormat.h"
#include "platform/jet/TextOrder.h"
#include "platform/jet/sqlite/Connection.h"
#include "tests/platform/jet/Scratch.h"
#include "tests/support/Print.h"

#include <QRegularExpression>

#include <limits>
#include <random>

using namespace Qt::StringLiterals;
using jet::Kind;

namespace {

class Calls : public testing::Test {
protected:
    std::unique_ptr<jet::Recordset> open(const QString& source, Kind kind = Kind::Dynaset) const
    {
        return m_database->OpenRecordset(source, kind);
    }

    Scratch m_scratch;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s,
        {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double, Fertig Boolean,"
         " Tag Date, Notiz Memo)"_s,
         u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 1)"_s,
         u"INSERT INTO J (Artikel) VALUES ('Hafer')"_s, u"INSERT INTO J (Artikel) VALUES ('Mais')"_s});
};

} // namespace

TEST_F(Calls, TakeValuesThatNoStatementCanWrite)
{
    const auto rows = open(u"SELECT * FROM J"_s);
    const QDate day(2024, 3, 5);
    const struct {
        QString field;
        jet::Value value;
        std::string wanted;
    } cases[] = {
        {u"Menge"_s, std::numeric_limits<double>::infinity(), "6 Überlauf. Feld: 'Menge'"},
        {u"Menge"_s, std::numeric_limits<double>::quiet_NaN(), "6 Überlauf. Feld: 'Menge'"},
        {u"Tag"_s, QDateTime(day, QTime(13, 45), Qt::OffsetFromUTC, 3600), "05.03.2024 13:45:00"},
        {u"Tag"_s, QDateTime(day, QTime(12, 45), Qt::UTC), "05.03.2024 12:45:00"}, // the same moment
        {u"Tag"_s, QDate(), "3421 Datentyp-Konvertierungsfehler. Feld: 'Tag'"},
        {u"Tag"_s, QDate(12024, 3, 5), "3421 Datentyp-Konvertierungsfehler. Feld: 'Tag'"},
        {u"Artikel"_s, QString(u"a\0b"_s), "3421 Datentyp-Konvertierungsfehler. Feld: 'Artikel'"},
        {u"Notiz"_s, QString(70000, u'x'), std::string(70000, 'x')},
    };
    for (const auto& given : cases) {
        const std::string refused = refusal([&] {
            rows->Edit();
            rows->Set(given.field, given.value);
            rows->Update();
        });
        EXPECT_EQ(refused.empty() ? written((*rows)[given.field]).toStdString()
                                  : refused.substr(0, refused.find(". D")),
                  given.wanted);
    }
    EXPECT_EQ(jet::Value(-3.5).toLong(), -4);
    EXPECT_EQ(jet::Value(2147483647.4).toLong(), 2147483647);
    EXPECT_EQ(refused([] { (void)jet::Value(2147483647.5).toLong(); }), 6);
}

// Written past the engine, or before it refused them. The row can be read and mended, and tells what is wrong
// with it.
TEST_F(Calls, ReadAndMendWhatNoColumnTakes)
{
    const std::string noTruth =
        "3317 Der Wert verletzt die Gültigkeitsregel: 0 (Nein) oder -1 (Ja). Feld: 'Fertig'.";
    const std::string inFile = ". Datei: '" + m_scratch.path(u"Lager.2024"_s).toStdString() + "'.";
    jet::sqlite::Connection past(m_scratch.path(u"Lager.2024"_s), jet::sqlite::Connection::Mode::Existing, 0);
    EXPECT_EQ(refusal([&] { past.execute("UPDATE J SET Fertig=1 WHERE ID=1"); }), noTruth);
    past.execute("PRAGMA ignore_check_constraints=1");
    past.execute("UPDATE J SET Fertig=1,Menge=-9e999 WHERE ID=1");
    const auto rows = open(u"SELECT -Menge AS Abgang, * FROM J"_s);
    EXPECT_EQ((*rows)[u"Menge"].toText() + (*rows)[u"Abgang"].toText(), u"-1,#INF1,#INF"_s);
    EXPECT_EQ(refusal([&] { rowsOf(*m_database, u"SELECT Sum(Menge) AS S FROM J"_s); }),
              "6 Überlauf" + inFile);
    EXPECT_EQ(refusal([&] { m_database->Execute(u"INSERT INTO J (Menge) SELECT Menge FROM J"_s); }),
              "6 Überlauf. Feld: 'Menge'" + inFile);
    EXPECT_EQ(refusal([&] { m_database->Execute(u"INSERT INTO J (Fertig) SELECT Fertig FROM J"_s); }),
              noTruth);
    rows->Edit();
    rows->Set(u"Menge", 4);
    rows->Set(u"Fertig", false);
    rows->Update();
    EXPECT_EQ(rowsOf(*m_database, u"SELECT Menge, Fertig FROM J WHERE ID < 3"_s), "4 | 0; NULL | 0");
}

TEST_F(Calls, KeepBookmarksToTheirRecordset)
{
    const QString source = u"SELECT ID, Artikel FROM J ORDER BY Artikel"_s; // Hafer, Mais, Weizen
    const auto rows = open(source);
    const auto twin = open(source);
    const jet::Bookmark hafer = rows->GetBookmark();
    rows->MoveNext();
    const jet::Bookmark mais = rows->GetBookmark();
    EXPECT_TRUE(mais == rows->BookmarkAt(1) && mais != hafer && mais != twin->BookmarkAt(1));
    EXPECT_EQ(refused([&] { twin->SetBookmark(mais); }), 3159);
    EXPECT_EQ(rows->PositionOf(mais), 1);
    EXPECT_EQ(twin->PositionOf(mais), -1);
    EXPECT_EQ(rows->PositionOf({}), -1);
    rows->SetAbsolutePosition(2);
    EXPECT_EQ(refused([&] { rows->SetAbsolutePosition(3); }), 3021);
    EXPECT_EQ(writtenRow(*rows), u"1 | Weizen"_s);
    const auto stretch = rows->RowsAt(1, 2, {1});
    EXPECT_EQ(writtenRow(*stretch[0]) + writtenRow(*stretch[1]), u"MaisWeizen"_s);

    rows->SetBookmark(hafer);
    rows->Delete();
    EXPECT_EQ(rows->PositionOf(mais), 0);
    const auto later = open(source);
    EXPECT_EQ(later->PositionOf(later->SameRow(mais)), 0);
    EXPECT_EQ(later->SameRow(hafer), jet::Bookmark());
    EXPECT_EQ(later->SameRow({}), jet::Bookmark());
    EXPECT_EQ(open(source, Kind::Snapshot)->SameRow(rows->BookmarkAt(1)),
              jet::Bookmark()); // its rows have no key
}

TEST_F(Calls, ShowNumbersTheGermanWay)
{
    const struct {
        double value;
        QString format, shown;
    } cases[] = {
        {0, u"##,#0.00"_s, u"0,00"_s},
        {-0.004, u"##,##0.00"_s, u"0,00"_s},
        {-0.005, u"##,##0.00"_s, u"-0,01"_s}, // half away from zero, unlike Round
        {1.005, u"##,##0.00"_s, u"1,01"_s},   // on the digits that a person sees
        {999.995, u"##,##0.00"_s, u"1.000,00"_s},
        {-1234567.895, u"##,##0.00"_s, u"-1.234.567,90"_s},
        {1e15, u"##,##0.00"_s, u"1.000.000.000.000.000,00"_s},
        {1e16, u"##,##0.00"_s, u"1E+16"_s},
        {99.5, u"0"_s, u"100"_s},
        {7, u"000.0"_s, u"007,0"_s},
        {1234.5, u"##,##0.00########"_s, u"1.234,50"_s}, // more decimals where the number has them
        {0.00001, u"##,##0.00########"_s, u"0,00001"_s},
        {1.0 / 3, u"##,##0.00####"_s, u"0,333333"_s},
    };
    for (const auto& given : cases)
        EXPECT_EQ(jet::formatted(given.value, given.format), given.shown);
}

// Of letters that are hard to order: case, umlauts, ß, accents, signs that hardly count, blanks, digits.
TEST_F(Calls, OrderTextsOneWay)
{
    const QStringList letters =
        u"a|A|ä|Ä|á|b|s|ss|ß|o|ö|z|Z| |-|'|0|9|(|_|.|€|😀|\t|\u00AD|\u00A0|a\u0308"_s.split(u'|');
    constexpr int Count = 300;
    std::mt19937 random(20240305);
    QStringList texts;
    for (int i = 0; i < Count; ++i) {
        texts += QString();
        for (auto length = random() % 5; length > 0; --length)
            texts.back() += letters[static_cast<qsizetype>(random()) % letters.size()];
    }
    static bool notAfter[Count][Count];
    for (int a = 0; a < Count; ++a)
        for (int b = 0; b < Count; ++b)
            notAfter[a][b] = jet::compareTexts(texts[a], texts[b]) <= 0;
    for (int a = 0; a < Count; ++a)
        for (int b = 0; b < Count; ++b) {
            EXPECT_TRUE(notAfter[a][b] || notAfter[b][a]) << (texts[a] + u" | "_s + texts[b]).toStdString();
            for (int c = 0; c < Count && notAfter[a][b]; ++c)
                ASSERT_TRUE(notAfter[a][c] || !notAfter[b][c])
                    << (texts[a] + u" | "_s + texts[b] + u" | "_s + texts[c]).toStdString();
        }

    // A dynaset puts its keys in order by itself, a snapshot leaves that to the store.
    const std::optional<double> numbers[] = {-1, 0, 1e-300, 2.5, -1e300, {}};
    const auto rows = open(u"J"_s);
    for (int i = 0; i < Count; ++i) {
        rows->AddNew();
        if (!texts[i].isEmpty()) rows->Set(u"Artikel", texts[i]);
        if (const auto number = numbers[random() % std::size(numbers)]) rows->Set(u"Menge", *number);
        rows->Update();
    }
    for (const QString& order : {u"Artikel, Menge"_s, u"Artikel DESC, Menge"_s, u"Menge, Artikel DESC"_s}) {
        const QString sql = u"SELECT ID, Artikel, Menge FROM J ORDER BY "_s + order;
        EXPECT_EQ(rowsOf(*m_database, sql), rowsOf(*m_database, sql, Kind::Snapshot)) << order.toStdString();
    }
}

// A file may come from a computer whose library orders texts in another way: its name stands in each index.
TEST_F(Calls, MakeIndicesOfAnotherOrderAnew)
{
    m_scratch
        .create(u"Lager.2023"_s,
                {u"CREATE TABLE T (T Text(20) PRIMARY KEY)"_s, u"INSERT INTO T VALUES ('Straße')"_s})
        ->Close();
    jet::engine().release();
    QByteArray bytes = m_scratch.bytesOf(u"Lager.2023"_s);
    const QRegularExpression form(u"de_\\d+_[0-9a-f]{8}"_s);
    const QByteArray name = form.match(QString::fromLatin1(bytes)).captured().toLatin1();
    ASSERT_FALSE(name.isEmpty());
    m_scratch.write(u"Lager.2023"_s, bytes.replace(name, name.chopped(8) + "00000000"));
    const auto database = m_scratch.open(u"Lager.2023"_s);
    EXPECT_EQ(refused([&] { database->Execute(u"INSERT INTO T VALUES ('STRASSE')"_s); }), 3022);
    EXPECT_EQ(rowsOf(*database, u"SELECT T FROM T WHERE T = 'strasse'"_s), "Straße");
    EXPECT_NE(m_scratch.bytesOf(u"Lager.2023"_s).indexOf(name), -1);
}

TEST_F(Calls, HaveTheirStatementEachAndKeepIt)
{
    EXPECT_EQ(refused([&] { m_database->Execute(u"SELECT ID FROM J"_s); }), 3065);
    EXPECT_EQ(refused([&] { open(u"DELETE FROM J"_s); }), 3129);
    EXPECT_NE(refused([&] { m_database->Execute(u"  \r\n"_s); }), 0);
    EXPECT_NE(refused([&] { open({}); }), 0);
    for (const QString& condition : {u"ID = 1\0 AND ID = 2"_s, u"Artikel = 'a\0'"_s}) // which ends nothing
        EXPECT_EQ(refused([&] { open(u"SELECT ID FROM J WHERE "_s + condition); }), 3075);
    const auto rows = open(u"SELECT ID FROM J"_s);
    for (int i = 0; i < 130; ++i) { // more than are kept, each twice
        const QString sql =
            u"SELECT ID + "_s + QString::number(i % 10) + u" AS N%1 FROM J WHERE ID = 1"_s.arg(i);
        for (int twice = 0; twice < 2; ++twice)
            EXPECT_EQ(rowsOf(*m_database, sql), std::to_string(1 + i % 10));
        rows->FindFirst(u"ID = ID + %1 - %1"_s.arg(i % 10) + u" - 0"_s.repeated(i % 60));
        EXPECT_FALSE(rows->NoMatch());
    }
    EXPECT_EQ((*rows)[0].toLong(), 1);
}

TEST_F(Calls, AreRefusedWithTheFileAndThePlace)
{
    jet::sqlite::Connection past(m_scratch.path(u"Lager.2024"_s), jet::sqlite::Connection::Mode::Existing, 0);
    past.execute("CREATE TABLE Fremd(Tag DATETEXT);INSERT INTO Fremd VALUES('gestern')");
    const auto rows = open(u"SELECT * FROM J"_s);
    const std::pair<int, std::function<void()>> calls[] = {
        {3265, [&] { (*rows)[u"Preis"]; }},
        {3265, [&] { (*rows)[6]; }},
        {3265, [&] { (*rows)[-1]; }},
        {3421, [&] { open(u"SELECT Year(Tag) AS J FROM Fremd"_s, Kind::Snapshot); }},
    };
    const std::string named = " Datei: '" + m_scratch.path(u"Lager.2024"_s).toStdString() + "'.";
    for (const auto& [number, call] : calls) {
        const std::string told = refusal(call);
        EXPECT_TRUE(told.starts_with(std::to_string(number) + ' ') && told.ends_with(named)) << told;
    }
    try {
        open(u"SELECT ID FROM J WHERE ID AND AND Artikel"_s);
        ADD_FAILURE() << "no refusal";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.position(), 30); // of the second AND
    }
}
