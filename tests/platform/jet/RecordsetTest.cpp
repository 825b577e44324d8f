#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using jet::Kind;

namespace {

const char* const NoCurrentRecord = "3021 Kein aktueller Datensatz.";
const char* const RecordDeleted = "3167 Datensatz ist gelöscht.";
const char* const ReadOnly = "3027 Aktualisieren nicht möglich. Datenbank oder Objekt ist schreibgeschützt.";
const char* const ObjectClosed = "3420 Objekt ungültig oder nicht mehr festgelegt.";

class Recordset : public testing::Test {
protected:
    std::unique_ptr<jet::Recordset> open(const QString& source, Kind kind = Kind::Default) const
    {
        return m_database->OpenRecordset(source, kind);
    }

    /// What another program does to the same file meanwhile.
    void elsewhere(const QString& statement) const
    {
        m_other.OpenDatabase(m_scratch.path(u"Lager.2024"_s))->Execute(statement);
    }

    /// Article of the current row, or the refusal to read it.
    static std::string article(const jet::Recordset& rows)
    {
        std::string text;
        const std::string refused = refusal([&] { text = rows[u"Artikel"].toText().toStdString(); });
        return refused.empty() ? text : refused;
    }

    Scratch m_scratch;
    mutable jet::Engine m_other;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s, {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double)"_s,
                          u"CREATE TABLE Leer (A Long)"_s, u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 1)"_s,
                          u"INSERT INTO J (Artikel, Menge) VALUES ('Hafer', 2)"_s,
                          u"INSERT INTO J (Artikel, Menge) VALUES ('Mais', 3)"_s});
};

} // namespace

TEST_F(Recordset, WithoutRowsHasNoCurrentOne)
{
    for (const Kind kind : {Kind::Table, Kind::Dynaset, Kind::Snapshot}) {
        const auto rows = open(kind == Kind::Table ? u"Leer"_s : u"SELECT * FROM Leer"_s, kind);
        EXPECT_TRUE(rows->Bof() && rows->Eof());
        EXPECT_EQ(rows->RecordCount(), 0);
        EXPECT_EQ(rows->AbsolutePosition(), -1);
        EXPECT_EQ(refusal([&] { rows->MoveFirst(); }), NoCurrentRecord);
        EXPECT_EQ(refusal([&] { rows->MoveLast(); }), NoCurrentRecord);
        EXPECT_EQ(refusal([&] { rows->MoveNext(); }), NoCurrentRecord);
        EXPECT_EQ(refusal([&] { rows->MovePrevious(); }), NoCurrentRecord);
        EXPECT_EQ(refusal([&] { (*rows)[u"A"]; }), NoCurrentRecord);
        EXPECT_EQ(refusal([&] { rows->GetBookmark(); }), NoCurrentRecord);
        if (kind == Kind::Table) continue;
        rows->FindFirst(u"A = 1"_s);
        EXPECT_TRUE(rows->NoMatch());
    }
}

TEST_F(Recordset, WalksFromBofToEofAndBack)
{
    for (const Kind kind : {Kind::Table, Kind::Dynaset, Kind::Snapshot}) {
        const auto rows = open(kind == Kind::Table ? u"J"_s : u"SELECT * FROM J ORDER BY ID"_s, kind);
        EXPECT_FALSE(rows->Bof() || rows->Eof());
        EXPECT_EQ(rows->RecordCount(), 3);
        EXPECT_EQ(article(*rows), "Weizen");
        rows->MoveNext();
        rows->MoveNext();
        EXPECT_EQ(article(*rows), "Mais");
        EXPECT_FALSE(rows->Eof());
        rows->MoveNext();
        EXPECT_TRUE(rows->Eof());
        EXPECT_EQ(article(*rows), NoCurrentRecord);
        EXPECT_EQ(refusal([&] { rows->MoveNext(); }), NoCurrentRecord);
        rows->MovePrevious();
        EXPECT_EQ(article(*rows), "Mais");
        rows->MoveFirst();
        rows->MovePrevious();
        EXPECT_TRUE(rows->Bof());
        EXPECT_EQ(refusal([&] { rows->MovePrevious(); }), NoCurrentRecord);
        rows->MoveNext();
        EXPECT_EQ(article(*rows), "Weizen");
        rows->MoveLast();
        EXPECT_EQ(article(*rows), "Mais");
        EXPECT_EQ(rows->AbsolutePosition(), kind == Kind::Table ? -1 : 2);
    }
}

TEST_F(Recordset, DefaultKindSuitsTheSource)
{
    const auto table = open(u"j"_s);
    EXPECT_TRUE(table->Updatable());
    EXPECT_EQ(refusal([&] { table->FindFirst(u"ID = 1"_s); }).substr(0, 5), "3251 ");

    const struct {
        const char* sql;
        bool updatable;
    } sources[] = {
        {"SELECT * FROM J WHERE Menge > 1", true},
        {"SELECT Menge * 2 AS M, Artikel FROM J", true},
        {"SELECT DISTINCT Artikel FROM J", false},
        {"SELECT Sum(Menge) AS S FROM J", false},
        {"SELECT Artikel, Sum(Menge) AS S FROM J GROUP BY Artikel", false},
        {"SELECT J.ID FROM J INNER JOIN Leer ON J.ID = Leer.A", false},
    };
    for (const auto& source : sources) {
        SCOPED_TRACE(source.sql);
        for (const Kind kind : {Kind::Default, Kind::Dynaset}) {
            const auto rows = open(QString::fromUtf8(source.sql), kind);
            EXPECT_EQ(rows->Updatable(), source.updatable);
            EXPECT_EQ(refusal([&] { rows->AddNew(); }), source.updatable ? "" : ReadOnly);
        }
        EXPECT_FALSE(open(QString::fromUtf8(source.sql), Kind::Snapshot)->Updatable());
    }
    const auto snapshot = open(u"SELECT * FROM J"_s, Kind::Snapshot);
    EXPECT_EQ(refusal([&] { snapshot->AddNew(); }), ReadOnly);
    EXPECT_EQ(refusal([&] { snapshot->Edit(); }), ReadOnly);
    EXPECT_EQ(refusal([&] { snapshot->Delete(); }), ReadOnly);
}

TEST_F(Recordset, DynasetKeepsItsRowsAndReadsThemFresh)
{
    const auto dynaset = open(u"SELECT * FROM J ORDER BY Artikel"_s, Kind::Dynaset); // Hafer, Mais, Weizen
    const auto snapshot = open(u"SELECT * FROM J ORDER BY Artikel"_s, Kind::Snapshot);
    const auto table = open(u"J"_s, Kind::Table); // Weizen, Hafer, Mais
    elsewhere(u"UPDATE J SET Artikel = 'Zucker' WHERE ID = 3"_s);
    elsewhere(u"DELETE FROM J WHERE ID = 2"_s);
    elsewhere(u"INSERT INTO J (Artikel) VALUES ('Aal')"_s);

    EXPECT_EQ(dynaset->RecordCount(), 3);
    dynaset->MoveFirst();
    EXPECT_EQ(article(*dynaset), RecordDeleted);
    EXPECT_EQ(refusal([&] { dynaset->Edit(); }), RecordDeleted);
    dynaset->MoveNext();
    EXPECT_EQ(article(*dynaset), "Zucker");
    dynaset->MoveLast();
    EXPECT_EQ(article(*dynaset), "Weizen");

    EXPECT_EQ(all(*snapshot), "2 | Hafer | 2\n3 | Mais | 3\n1 | Weizen | 1");

    table->MoveNext();
    EXPECT_EQ(article(*table), "Zucker");
    table->MoveNext();
    EXPECT_EQ(article(*table), "Aal");
    EXPECT_EQ(table->RecordCount(), 3);
}

TEST_F(Recordset, OwnRowsStay)
{
    const auto rows = open(u"SELECT * FROM J WHERE Menge < 3 ORDER BY Artikel"_s); // Hafer, Weizen
    rows->MoveNext();
    rows->AddNew();
    rows->Set(u"Artikel", u"Aal"_s);
    rows->Set(u"Menge", 99);
    rows->Update();
    EXPECT_EQ(article(*rows), "Weizen"); // the row that was current before
    EXPECT_EQ(rows->RecordCount(), 3);
    rows->Edit();
    rows->Set(u"Menge", 50);
    rows->Update();
    EXPECT_EQ(all(*rows), "2 | Hafer | 2\n1 | Weizen | 50\n4 | Aal | 99"); // whatever order and condition say
    rows->MoveFirst();
    rows->SetBookmark(rows->LastModified());
    EXPECT_EQ(article(*rows), "Weizen");
    rows->MoveLast();
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    EXPECT_EQ((*rows)[u"ID"].toLong(), 4);
}

TEST_F(Recordset, AddsToAnEmptySet)
{
    for (const Kind kind : {Kind::Table, Kind::Dynaset}) {
        const auto rows = open(kind == Kind::Table ? u"Leer"_s : u"SELECT * FROM Leer WHERE A > 100"_s, kind);
        rows->AddNew();
        rows->Set(u"A", 1);
        rows->Update();
        EXPECT_EQ(rows->RecordCount(), 1);
        EXPECT_EQ(refusal([&] { (*rows)[u"A"]; }), NoCurrentRecord); // as before, until a move
        rows->MoveLast();
        EXPECT_EQ((*rows)[u"A"].toLong(), 1);
        rows->MoveNext();
        rows->AddNew();
        rows->Update();
        EXPECT_TRUE(rows->Eof());
        rows->MovePrevious();
        rows->Delete();
        EXPECT_FALSE(rows->Bof() || rows->Eof());
        m_database->Execute(u"DELETE FROM Leer"_s);
    }
}

TEST_F(Recordset, DeletedRowIsGoneAtTheNextMove)
{
    for (const Kind kind : {Kind::Table, Kind::Dynaset}) {
        m_database->Execute(u"INSERT INTO Leer VALUES (1)"_s);
        m_database->Execute(u"INSERT INTO Leer VALUES (2)"_s);
        m_database->Execute(u"INSERT INTO Leer VALUES (3)"_s);
        const auto rows = open(kind == Kind::Table ? u"Leer"_s : u"SELECT * FROM Leer ORDER BY A"_s, kind);
        rows->MoveNext();
        rows->Delete();
        EXPECT_EQ(rows->RecordCount(), 2);
        EXPECT_EQ(refusal([&] { (*rows)[u"A"]; }), RecordDeleted);
        EXPECT_EQ(refusal([&] { rows->Edit(); }), RecordDeleted);
        rows->MoveNext();
        EXPECT_EQ((*rows)[u"A"].toLong(), 3);
        rows->MovePrevious();
        EXPECT_EQ((*rows)[u"A"].toLong(), 1);
        rows->Delete();
        rows->MoveNext();
        rows->Delete();
        EXPECT_EQ(rows->RecordCount(), 0);
        EXPECT_NE(refusal([&] { rows->Delete(); }), "");
        EXPECT_EQ(refusal([&] { rows->MoveLast(); }), NoCurrentRecord);
        EXPECT_EQ(rowsOf(*m_database, u"SELECT * FROM Leer"_s), "");
    }
}

TEST_F(Recordset, BookmarkBelongsToItsRecordset)
{
    const auto rows = open(u"SELECT * FROM J ORDER BY Artikel"_s);
    const auto twin = open(u"SELECT * FROM J ORDER BY Artikel"_s);
    rows->MoveNext();
    const jet::Bookmark mark = rows->GetBookmark();
    EXPECT_EQ(mark, rows->GetBookmark());
    EXPECT_NE(mark, twin->GetBookmark());
    rows->MoveLast();
    EXPECT_NE(mark, rows->GetBookmark());
    rows->SetBookmark(mark);
    EXPECT_EQ(article(*rows), "Mais");
    EXPECT_EQ(refusal([&] { twin->SetBookmark(mark); }), "3159 Kein zulässiges Lesezeichen.");
    EXPECT_EQ(refusal([&] { rows->SetBookmark({}); }), "3159 Kein zulässiges Lesezeichen.");
    EXPECT_EQ(refusal([&] { rows->SetBookmark(rows->LastModified()); }), "3159 Kein zulässiges Lesezeichen.");
    EXPECT_EQ(article(*rows), "Mais");
}

TEST_F(Recordset, ShowsRowsByTheirPlaceWithoutMoving)
{
    for (const Kind kind : {Kind::Dynaset, Kind::Snapshot}) {
        const auto rows = open(u"SELECT * FROM J ORDER BY Artikel"_s, kind); // Hafer, Mais, Weizen
        const auto at = [&](qsizetype place) { return (*rows->RowAt(place))[1].toText(); };
        rows->MoveNext();
        if (kind == Kind::Dynaset) { // what is not written yet is not in the file
            rows->Edit();
            rows->Set(u"Artikel", u"Zucker"_s);
        }
        EXPECT_EQ(at(0) + at(1) + at(2), u"HaferMaisWeizen"_s);
        EXPECT_EQ(rows->Editing(), kind == Kind::Dynaset);
        EXPECT_EQ(rows->AbsolutePosition(), 1);
        EXPECT_EQ(rows->PositionOf(rows->BookmarkAt(2)), 2);
        EXPECT_EQ(rows->PositionOf({}), -1);
        EXPECT_EQ(rows->PositionOf(open(u"SELECT * FROM J"_s, kind)->GetBookmark()), -1);
        rows->SetAbsolutePosition(2);
        EXPECT_EQ(article(*rows), "Weizen");
        for (const qsizetype place : {-1, 3}) {
            EXPECT_EQ(refusal([&] { rows->RowAt(place); }), NoCurrentRecord);
            EXPECT_EQ(refusal([&] { rows->BookmarkAt(place); }), NoCurrentRecord);
            EXPECT_EQ(refusal([&] { rows->SetAbsolutePosition(place); }), NoCurrentRecord);
        }
        EXPECT_EQ(article(*rows), "Weizen");
    }
    EXPECT_EQ(refusal([&] { open(u"J"_s)->RowAt(0); }).substr(0, 5), "3251 ");
}

TEST_F(Recordset, ShowsByTheirPlaceWhatOthersChangedAndDeleted)
{
    const auto dynaset = open(u"SELECT * FROM J ORDER BY Artikel"_s); // Hafer, Mais, Weizen
    const jet::Bookmark hafer = dynaset->BookmarkAt(0);
    const jet::Bookmark mais = dynaset->BookmarkAt(1);
    elsewhere(u"UPDATE J SET Artikel = 'Aal' WHERE ID = 3"_s);
    elsewhere(u"DELETE FROM J WHERE ID = 2"_s);
    EXPECT_FALSE(dynaset->RowAt(0));
    EXPECT_EQ((*dynaset->RowAt(1))[1].toText(), u"Aal"_s);

    const auto opened = open(u"SELECT * FROM J ORDER BY Artikel"_s); // Aal, Weizen
    EXPECT_EQ(opened->PositionOf(opened->SameRow(mais)), 0);
    EXPECT_EQ(opened->SameRow(hafer), jet::Bookmark());
    EXPECT_EQ(opened->SameRow({}), jet::Bookmark());
    const auto snapshot = open(u"SELECT * FROM J"_s, Kind::Snapshot);
    EXPECT_EQ(snapshot->SameRow(mais), jet::Bookmark()); // its rows have no key
    opened->MoveFirst();
    opened->Delete();
    EXPECT_EQ((*opened->RowAt(0))[1].toText(), u"Weizen"_s);
    EXPECT_EQ(opened->SameRow(mais), jet::Bookmark());
}

TEST_F(Recordset, FindsFromTheFirstRowOn)
{
    const auto rows = open(u"SELECT ID, Artikel AS Name, Menge FROM J ORDER BY Menge DESC"_s); // Mais, Hafer, Weizen
    rows->MoveLast();
    rows->FindFirst(u"Menge > 1"_s);
    EXPECT_FALSE(rows->NoMatch());
    EXPECT_EQ(writtenRow(*rows), u"3 | Mais | 3"_s);
    rows->FindFirst(u"NAME = 'hafer '"_s);
    EXPECT_EQ(rows->AbsolutePosition(), 1);
    rows->FindFirst(u"Name = 'Roggen'"_s);
    EXPECT_TRUE(rows->NoMatch());
    EXPECT_EQ(rows->AbsolutePosition(), 1); // stays
    EXPECT_EQ(refusal([&] { rows->FindFirst(u"Artikel = 'Mais'"_s); }),
              "3070 Das Datenbankmodul erkennt 'Artikel' nicht als gültigen Feldnamen oder Ausdruck.");
    EXPECT_EQ(refusal([&] { rows->FindFirst(u"Name = "_s); }), "3077 Syntaxfehler (fehlender Operator) in Ausdruck.");
    EXPECT_EQ(refusal([&] { rows->FindFirst(u"Name = 'x"_s); }), "3077 Syntaxfehler in Zeichenfolge in Ausdruck.");
    EXPECT_EQ(refusal([&] { rows->FindFirst(u"ID = '1'"_s); }), "3464 Datentypenkonflikt in Kriterienausdruck.");
    EXPECT_EQ(rows->AbsolutePosition(), 1);
}

TEST_F(Recordset, FindsFromAPlaceOnAndThenFromTheFirst)
{
    for (const Kind kind : {Kind::Dynaset, Kind::Snapshot}) {
        const auto descending = open(u"SELECT * FROM J ORDER BY Menge DESC"_s, kind); // Mais, Hafer, Weizen
        const auto ascending = open(u"SELECT * FROM J"_s, kind);                      // Weizen, Hafer, Mais
        EXPECT_EQ(descending->FindFrom(2, u"Menge < 3"_s), 2);
        EXPECT_EQ(descending->FindFrom(2, u"Menge > 1"_s), 0);
        EXPECT_EQ(descending->FindFrom(3, u"ID = 2"_s), 1);
        EXPECT_EQ(ascending->FindFrom(2, u"Menge < 3"_s), 0);
        EXPECT_EQ(ascending->FindFrom(1, u"Menge > 3"_s), -1);
        EXPECT_EQ(ascending->AbsolutePosition(), 0);
    }
}

TEST_F(Recordset, FindsRowsAsTheyAreNow)
{
    const auto rows = open(u"SELECT * FROM J WHERE Menge < 3"_s); // Weizen, Hafer
    rows->AddNew();
    rows->Set(u"Artikel", u"Neu"_s);
    rows->Set(u"Menge", 7);
    rows->Update();
    rows->Edit();
    rows->Set(u"Menge", 8);
    rows->Update();
    const struct {
        const char* criterion;
        const char* found;
    } searches[] = {
        {"Artikel = 'Neu'", "4 | Neu | 7"}, // own row, added behind the condition
        {"Menge = 8", "1 | Weizen | 8"},    // own row, changed out of it
        {"Menge > 6", "1 | Weizen | 8"},    // the first in the set's order
        {"Artikel = 'Mais'", "no match"},   // never in the set
    };
    for (const auto& search : searches) {
        SCOPED_TRACE(search.criterion);
        rows->FindFirst(QString::fromUtf8(search.criterion));
        EXPECT_EQ(rows->NoMatch() ? "no match" : writtenRow(*rows).toStdString(), search.found);
    }
    rows->FindFirst(u"ID = 2"_s);
    rows->Delete();
    rows->FindFirst(u"ID = 2"_s);
    EXPECT_TRUE(rows->NoMatch());
}

TEST_F(Recordset, KnowsFieldsByNameInAnyCaseAndByPosition)
{
    const auto rows = open(u"SELECT Menge, Artikel AS Bezeichnung FROM J"_s);
    EXPECT_EQ((*rows)[u"BEZEICHNUNG"].toText(), u"Weizen"_s);
    EXPECT_EQ((*rows)[0].toDouble(), 1);
    EXPECT_EQ(refusal([&] { (*rows)[u"Artikel"]; }), "3265 Element in dieser Auflistung nicht gefunden.");
    EXPECT_EQ(refusal([&] { (*rows)[2]; }), "3265 Element in dieser Auflistung nicht gefunden.");
    EXPECT_EQ(refusal([&] { (*rows)[-1]; }), "3265 Element in dieser Auflistung nicht gefunden.");
}

TEST_F(Recordset, ClosedWithItsDatabase)
{
    const auto rows = open(u"SELECT * FROM J"_s);
    const auto table = open(u"J"_s);
    rows->AddNew();
    rows->Set(u"Artikel", u"verloren"_s);
    m_database->Close();
    m_database->Close();
    for (jet::Recordset* closed : {rows.get(), table.get()}) {
        EXPECT_EQ(refusal([&] { (void)closed->Eof(); }), ObjectClosed);
        EXPECT_EQ(refusal([&] { closed->MoveFirst(); }), ObjectClosed);
        EXPECT_EQ(refusal([&] { (*closed)[u"ID"]; }), ObjectClosed);
        EXPECT_EQ(refusal([&] { closed->Set(u"ID", 1); }), ObjectClosed);
        EXPECT_EQ(refusal([&] { closed->Update(); }), ObjectClosed);
        EXPECT_EQ(refusal([&] { closed->CancelUpdate(); }), ObjectClosed);
        EXPECT_EQ(refusal([&] { closed->GetBookmark(); }), ObjectClosed);
        EXPECT_EQ(refusal([&] { closed->FindFirst(u"ID = 1"_s); }), ObjectClosed);
    }
    EXPECT_EQ(refusal([&] { m_database->Execute(u"DELETE FROM J"_s); }), ObjectClosed);
    EXPECT_EQ(refusal([&] { m_database->OpenRecordset(u"J"_s); }), ObjectClosed);
    EXPECT_EQ(refusal([&] { m_database->TableDefs(); }), ObjectClosed);
    EXPECT_EQ(rowsOf(*m_scratch.open(u"Lager.2024"_s), u"SELECT Count(*) AS N FROM J"_s), "3");
}
