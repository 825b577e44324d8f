#include "platform/jet/TableDef.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Scratch.h"
#include "tests/support/Child.h"

#include <zablager/FileError.h>

#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A year file that several programs use; another engine has its own connections, as another program would.
class Sharing : public testing::Test {
protected:
    Sharing()
    {
        m_scratch.create(u"Lager.2024"_s,
                         {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double)"_s,
                          u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 1)"_s,
                          u"INSERT INTO J (Artikel, Menge) VALUES ('Hafer', 2)"_s});
        jet::engine().release();
        jet::engine().setLockTimeout(50);
    }

    QString path(const QString& name = u"Lager.2024"_s) const { return m_scratch.path(name); }
    std::unique_ptr<jet::Database> open() const { return m_scratch.open(u"Lager.2024"_s); }
    std::unique_ptr<jet::Database> openElsewhere() { return m_other.OpenDatabase(path()); }

    Scratch m_scratch;
    jet::Engine m_other;
    const std::string m_locked =
        "3218 Aktualisieren nicht möglich; momentan gesperrt. Datei: '" + path().toStdString() + "'.";
};

} // namespace

TEST_F(Sharing, ALockIsWaitedForOnceAndThenTold)
{
    jet::sqlite::Connection other(path(), jet::sqlite::Connection::Mode::Existing, 0);
    const auto database = open();
    const auto rows = database->OpenRecordset(u"SELECT * FROM J"_s);
    other.execute("BEGIN EXCLUSIVE;DELETE FROM J WHERE ID=1"); // keeps readers out as well
    constexpr int Patience = 500;                              // ms
    jet::engine().setLockTimeout(Patience);
    m_other.setLockTimeout(Patience);
    const std::function<void()> calls[] = {
        [&] { openElsewhere(); },
        [&] { database->OpenRecordset(u"SELECT * FROM J"_s); },
        [&] { database->OpenRecordset(u"SELECT Count(*) AS N FROM Neu"_s, jet::Kind::Snapshot); },
        [&] { (*rows)[u"Menge"]; },
        [&] { database->BeginTrans(); },
        [&] { database->Execute(u"DELETE FROM J"_s); },
        [&] { database->Execute(u"CREATE TABLE K (A Long)"_s); },
    };
    for (const auto& call : calls) {
        SCOPED_TRACE(&call - calls);
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(refusal(call), m_locked);
        EXPECT_GE(clock.elapsed(), Patience * 3 / 4);
        EXPECT_LT(clock.elapsed(), Patience * 19 / 10); // not once more
    }
    other.execute("COMMIT");
    EXPECT_EQ(rowsOf(*database, u"SELECT Artikel FROM J"_s), "Hafer");
}

TEST_F(Sharing, AWriterKeepsOnlyWritersOutAndAReaderNobody)
{
    m_scratch.create(u"Auswertung.mdb"_s)->Close();
    const auto database = open();
    const auto rows = database->OpenRecordset(u"SELECT * FROM J ORDER BY ID"_s);
    const auto sum = database->OpenRecordset(u"SELECT Sum(Menge) AS S FROM J"_s, jet::Kind::Snapshot);
    rows->Edit(); // forgotten
    const auto writer = openElsewhere();
    writer->BeginTrans();
    writer->Execute(u"INSERT INTO J (Artikel) VALUES ('fremd')"_s);
    rows->AddNew();
    rows->Set(u"Artikel", u"neu"_s);
    EXPECT_EQ(refusal([&] { rows->Update(); }), m_locked);
    EXPECT_TRUE(rows->Editing());
    EXPECT_EQ((*rows)[u"Artikel"].toText(), u"neu"_s);
    const QString copy = u"SELECT * INTO JOURNAL IN '"_s + path(u"Auswertung.mdb"_s) + u"' FROM J"_s;
    EXPECT_EQ(database->Execute(copy), 2);
    writer->Close();
    rows->Update();
    EXPECT_FALSE(rows->Editing());
    EXPECT_EQ(rowsOf(*database, u"SELECT ID, Artikel FROM J"_s), "1 | Weizen; 2 | Hafer; 3 | fremd; 4 | neu");
    const auto reader = openElsewhere();
    reader->BeginTrans();
    rows->Edit();
    rows->Update(); // what changes nothing needs no lock
    EXPECT_EQ(rows->LastModified(), rows->GetBookmark());
}

TEST_F(Sharing, ATransactionIsSeenWhenItIsCommitted)
{
    const auto database = open();
    const auto reader = openElsewhere();
    const auto count = [&](jet::Database& seen) { return rowsOf(seen, u"SELECT Count(*) AS N FROM J"_s); };
    m_scratch.create(u"Grundstamm.mdb"_s, {u"CREATE TABLE HANDLER (A Long)"_s});
    const QString connect = u";DATABASE="_s + path(u"Grundstamm.mdb"_s);
    database->CreateTableDef(u"Kunden"_s, connect, u"HANDLER"_s);
    database->BeginTrans();
    database->Execute(u"INSERT INTO J (Artikel) VALUES ('neu')"_s);
    EXPECT_EQ(count(*database) + count(*reader), "32");
    EXPECT_EQ(refusal([&] { database->Execute(u"SELECT 1 / (ID - 2) AS Q INTO K FROM J"_s); }),
              "11 Division durch Null");
    EXPECT_EQ(refusal([&] { database->OpenRecordset(u"Kunden"_s); }),
              "3251 Auf andere Dateien kann in einer Transaktion nicht zugegriffen werden.");
    EXPECT_THROW(sys::FileCopy(path(), path(u"Kopie"_s)), sys::FileError);
    database->CommitTrans();
    EXPECT_EQ(count(*reader), "3");
    const auto kept = database->OpenRecordset(u"Kunden"_s); // which lets go of the other file
    EXPECT_EQ(rowsOf(*database, u"Kunden"_s), "-");
    const auto twin = open(); // on the same connection
    database->BeginTrans();   // the next one begins anew
    EXPECT_EQ(refusal([&] { twin->BeginTrans(); }), m_locked);
    database->Execute(u"DELETE FROM J"_s);
    database->Close(); // keeps what was written
    EXPECT_EQ(count(*reader), "0");
    const auto tables = reader->TableDefs();
    ASSERT_EQ(tables.size(), 2U); // no system table shows
    EXPECT_EQ(tables[1].name + tables[1].sourceTable + tables[1].connect, u"KundenHANDLER"_s + connect);
}

TEST_F(Sharing, WhatAKilledProgramLeavesGoesWithItsFile)
{
    m_scratch.create(u"Lager.vorlage"_s, {u"CREATE TABLE Neu (A Long)"_s})->Close();
    jet::engine().release();
    ASSERT_EQ(exitCode(startChild([&] {
                  const auto database = open();
                  database->Execute(u"ALTER TABLE J ADD COLUMN Notiz Memo"_s);
                  database->Execute(u"UPDATE J SET Notiz = '"_s + QString(700'000, u'x') + u"'"_s);
                  database->BeginTrans();
                  for (int i = 0; i < 40;
                       ++i) // more than is kept in memory, so that the file itself has changed
                      database->Execute(u"INSERT INTO J (Artikel, Notiz) VALUES ('halb', '"_s +
                                        QString(700'000, u'y') + u"')"_s);
                  database->Execute(u"UPDATE J SET Menge = 99"_s);
                  _exit(7);
                  return 0;
              })),
              7);
    ASSERT_TRUE(QFile::exists(path() + u"-journal"_s)); // or this tests nothing
    sys::FileCopy(path(), path(u"Kopie.2024"_s));
    EXPECT_EQ(rowsOf(*m_scratch.open(u"Kopie.2024"_s), u"SELECT ID, Artikel, Menge FROM J"_s),
              "1 | Weizen | 1; 2 | Hafer | 2");
    sys::FileCopy(path(u"Lager.vorlage"_s), path());
    EXPECT_EQ(rowsOf(*open(), u"SELECT Count(*) AS N FROM Neu"_s), "0");
}

TEST_F(Sharing, TheJournalOfAnotherProgramsDatabaseIsLeftAlone)
{
    m_scratch.create(u"fremd.db"_s)->Close();
    jet::engine().release();
    // Four zeros where SQLite keeps the number of the program that a file belongs to.
    m_scratch.write(u"fremd.db"_s, m_scratch.bytesOf(u"fremd.db"_s).replace(68, 4, QByteArray(4, '\0')));
    m_scratch.write(u"fremd.db-journal"_s, QByteArray(600, '\0')); // begun, nothing in it yet
    m_scratch.write(u"Notiz.txt"_s, "kein Bestand");
    m_scratch.write(u"Notiz.txt-journal"_s, "Rest");
    for (const QString& name : {u"fremd.db"_s, u"Notiz.txt"_s})
        sys::FileCopy(path(name), path(u"Kopie"_s));
    EXPECT_TRUE(QFile::exists(path(u"fremd.db-journal"_s)));
    EXPECT_FALSE(QFile::exists(path(u"Notiz.txt-journal"_s)));
    m_scratch.write(u"Lager.1999-journal"_s, "Rest"); // of a file that was deleted
    m_scratch.create(u"Lager.1999"_s)->Execute(u"CREATE TABLE J (A Long)"_s);
    EXPECT_FALSE(QFile::exists(path(u"Lager.1999-journal"_s)));
}

TEST_F(Sharing, OthersDefineAndExchangeWhatIsOpen)
{
    const auto database = open();
    const auto other = openElsewhere();
    const QString first = u"SELECT * FROM J WHERE ID = 1"_s;
    EXPECT_EQ(rowsOf(*database, first), "1 | Weizen | 1");
    other->Execute(u"ALTER TABLE J ADD COLUMN Ort Text(5)"_s);
    EXPECT_EQ(rowsOf(*database, first), "1 | Weizen | 1 | NULL");
    EXPECT_EQ(database->Execute(u"UPDATE J SET Ort = 'H1' WHERE ID = 1"_s), 1);
    EXPECT_EQ(database->TableDefs().front().fields.back().size, 5);
    other->Execute(u"DROP TABLE J"_s);
    other->Execute(u"CREATE TABLE J (Anders Text(5))"_s);
    EXPECT_EQ(rowsOf(*database, u"SELECT * FROM J"_s), "-");
    EXPECT_EQ(refused([&] { database->OpenRecordset(first); }), 3061);
    other->Close();
    m_other.release();

    const auto exchange = [&](const QString& column) {
        m_scratch.create(u"anders"_s, {u"CREATE TABLE J ("_s + column + u" Long)"_s})->Close();
        jet::engine().release(path(u"anders"_s));
        ASSERT_TRUE(QFile::remove(path()));
        EXPECT_EQ(refused([&] { open(); }), 3024);
        ASSERT_TRUE(QFile::rename(path(u"anders"_s), path()));
    };
    database->Execute(u"INSERT INTO J VALUES ('noch')"_s);
    exchange(u"A"_s);
    EXPECT_EQ(rowsOf(*database, u"SELECT * FROM J"_s), "noch"); // who has it open keeps it
    EXPECT_EQ(rowsOf(*open(), u"SELECT A FROM J"_s), "-");
    database->Close();
    exchange(u"B"_s); // while only the engine still has it
    EXPECT_EQ(rowsOf(*open(), u"SELECT B FROM J"_s), "-");
}
