#include "platform/jet/sqlite/Connection.h"
#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using jet::Kind;

namespace {

class Values : public testing::Test {
protected:
    std::unique_ptr<jet::Recordset> open(const QString& source, Kind kind = Kind::Default) const
    {
        return m_database->OpenRecordset(source, kind);
    }

    Scratch m_scratch;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s, {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double, Fertig Boolean,"
                          " Tag Date, Notiz Memo)"_s,
                          u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 1)"_s,
                          u"INSERT INTO J (Artikel) VALUES ('Hafer')"_s, u"INSERT INTO J (Artikel) VALUES ('Mais')"_s});
};

} // namespace

TEST_F(Values, ThatNoFileCanWriteComeFromHosts)
{
    const auto rows = open(u"SELECT * FROM J"_s);
    const auto put = [&](QStringView field, const jet::Value& value) {
        const std::string refused = refusal([&] {
            rows->Edit();
            rows->Set(field, value);
            rows->Update();
        });
        return refused.empty() ? written((*rows)[field]).toStdString() : refused.substr(0, refused.find(". Datei"));
    };
    const QDate day(2024, 3, 5);
    const struct {
        const char16_t* field;
        jet::Value value;
        std::string wanted;
    } cases[] = {
        {u"Menge", std::numeric_limits<double>::infinity(), "6 Überlauf. Feld: 'Menge'"},
        {u"Menge", std::numeric_limits<double>::quiet_NaN(), "6 Überlauf. Feld: 'Menge'"},
        {u"Tag", QDateTime(day, QTime(13, 45), Qt::OffsetFromUTC, 3600), "05.03.2024 13:45:00"},
        {u"Tag", QDateTime(day, QTime(12, 45), Qt::UTC), "05.03.2024 12:45:00"}, // the same moment
        {u"Tag", QDate(), "3421 Datentyp-Konvertierungsfehler. Feld: 'Tag'"},
        {u"Tag", QDate(12024, 3, 5), "3421 Datentyp-Konvertierungsfehler. Feld: 'Tag'"},
        {u"Artikel", QString(u"a\0b"_s), "3421 Datentyp-Konvertierungsfehler. Feld: 'Artikel'"},
        {u"Notiz", QString(70000, u'x'), std::string(70000, 'x')},
    };
    for (const auto& given : cases)
        EXPECT_EQ(put(QStringView(given.field), given.value), given.wanted);
}

// Written past the engine, or before it refused them. The row can be read and mended, and tells what is wrong with it.
TEST_F(Values, ThatNoColumnTakesAreReadableAndGoNoFurther)
{
    const std::string noTruth = "3317 Der Wert verletzt die Gültigkeitsregel: 0 (Nein) oder -1 (Ja). Feld: 'Fertig'.";
    const std::string inFile = ". Datei: '" + m_scratch.path(u"Lager.2024"_s).toStdString() + "'.";
    jet::sqlite::Connection past(m_scratch.path(u"Lager.2024"_s), jet::sqlite::Connection::Mode::Existing, 0);
    EXPECT_EQ(refusal([&] { past.execute("UPDATE J SET Fertig=1 WHERE ID=1"); }), noTruth);
    past.execute("PRAGMA ignore_check_constraints=1");
    past.execute("UPDATE J SET Fertig=1,Menge=-9e999 WHERE ID=1");
    const auto rows = open(u"SELECT -Menge AS Abgang, * FROM J"_s);
    EXPECT_EQ((*rows)[u"Menge"].toText() + (*rows)[u"Abgang"].toText(), u"-1,#INF1,#INF"_s);
    EXPECT_EQ(refusal([&] { rowsOf(*m_database, u"SELECT Sum(Menge) AS S FROM J"_s); }), "6 Überlauf" + inFile);
    EXPECT_EQ(refusal([&] { m_database->Execute(u"INSERT INTO J (Menge) SELECT Menge FROM J"_s); }),
              "6 Überlauf. Feld: 'Menge'" + inFile);
    EXPECT_EQ(refusal([&] { m_database->Execute(u"INSERT INTO J (Fertig) SELECT Fertig FROM J"_s); }), noTruth);
    rows->Edit();
    rows->Set(u"Menge", 4);
    rows->Set(u"Fertig", false);
    rows->Update();
    EXPECT_EQ(rowsOf(*m_database, u"SELECT Menge, Fertig FROM J WHERE ID < 3"_s), "4 | 0; NULL | 0");
}

TEST_F(Values, BookmarksBelongToTheirRecordset)
{
    const QString source = u"SELECT ID, Artikel FROM J ORDER BY Artikel"_s; // Hafer, Mais, Weizen
    const auto rows = open(source);
    const auto twin = open(source);
    const jet::Bookmark hafer = rows->GetBookmark();
    rows->MoveNext();
    const jet::Bookmark mais = rows->GetBookmark();
    EXPECT_TRUE(mais == rows->BookmarkAt(1) && mais != hafer && mais != twin->BookmarkAt(1));
    EXPECT_EQ(refused([&] { twin->SetBookmark(mais); }), 3159);
    EXPECT_EQ(refused([&] { rows->SetBookmark({}); }), 3159);
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
    EXPECT_EQ(open(source, Kind::Snapshot)->SameRow(mais), jet::Bookmark()); // its rows have no key
}

TEST_F(Values, OfAnotherFileNeedItsPassword)
{
    const QString path = m_scratch.path(u"Grundstämme.mdb"_s);
    const auto master = jet::engine().CreateDatabase(path, u";pwd=RT-58KX"_s);
    master->Execute(u"CREATE TABLE HANDLER (KurzKu Text(15))"_s);
    const auto link = [&](const QString& name, const QString& connect, const QString& source = u"HANDLER"_s) {
        return refused([&] { m_database->CreateTableDef(name, connect, source); });
    };
    const QString connect = u"Ms Access;pwd=RT-58KX;DATABASE="_s + path;
    EXPECT_EQ(link(u"Kunden"_s, u"MS Access;DATABASE="_s + m_scratch.path(u"Fehlt.mdb"_s)), 3024);
    EXPECT_EQ(link(u"Kunden"_s, u";DATABASE="_s + path), 3031);
    EXPECT_EQ(link(u"Kunden"_s, connect, u"Kunden"_s), 3011);
    EXPECT_EQ(link(u"j"_s, connect), 3010);
    EXPECT_EQ(link(u"Kunden"_s, connect), 0);
    m_database->Close();
    jet::engine().release();
    m_database = m_scratch.open(u"Lager.2024"_s);
    const auto tables = m_database->TableDefs();
    ASSERT_EQ(tables.size(), 2U); // no system table shows
    EXPECT_EQ(tables[1].name + tables[1].sourceTable, u"KundenHANDLER"_s);
    EXPECT_EQ(tables[1].connect, connect);
    std::vector<std::unique_ptr<jet::Recordset>> kept; // more than files can be attached: each is let go once read
    while (kept.size() < 12)
        kept.push_back(open(u"kunden"_s, Kind::Snapshot));
    EXPECT_TRUE(kept.back()->Eof());

    const auto copy = [&](const QString& target) {
        return refused([&] { m_database->Execute(u"SELECT ID INTO Kopie IN "_s + target + u" FROM J"_s); });
    };
    EXPECT_EQ(copy(u'\'' + path + u'\''), 3031);
    EXPECT_EQ(copy(u"'' [;DATABASE="_s + path + u";PWD=falsch]"_s), 3031);
    EXPECT_EQ(copy(u"'' [;DATABASE="_s + path + u";PWD=RT-58KX]"_s), 0);
    EXPECT_EQ(rowsOf(*master, u"SELECT * FROM Kopie"_s), "1; 2; 3");
}

// A file may come from a computer whose library orders texts in another way: its name stands in each index.
TEST(Collation, IndicesOfAnotherOrderAreMadeAnew)
{
    const Scratch scratch;
    scratch
        .create(u"Lager.2024"_s, {u"CREATE TABLE T (T Text(20) PRIMARY KEY)"_s, u"INSERT INTO T VALUES ('Straße')"_s})
        ->Close();
    jet::engine().release();
    QByteArray bytes = scratch.bytes(u"Lager.2024"_s);
    const auto name =
        QRegularExpression(u"de_\\d+_[0-9a-f]{8}"_s).match(QString::fromLatin1(bytes)).captured().toLatin1();
    ASSERT_FALSE(name.isEmpty());
    scratch.write(u"Lager.2024"_s, bytes.replace(name, name.chopped(8) + "00000000"));

    const auto database = scratch.open(u"Lager.2024"_s);
    EXPECT_EQ(refused([&] { database->Execute(u"INSERT INTO T VALUES ('STRASSE')"_s); }), 3022);
    EXPECT_EQ(rowsOf(*database, u"SELECT T FROM T WHERE T = 'strasse'"_s), "Straße");
    EXPECT_TRUE(scratch.bytes(u"Lager.2024"_s).contains(name));
}
