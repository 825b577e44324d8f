#include "platform/jet/Transaction.h"
#include "platform/jet/sqlite/Connection.h"
#include "platform/system/Files.h"
#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Program.h"
#include "tests/platform/jet/Scratch.h"

#include <zablager/FileError.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A year file that several programs use. What the other program does stands before the test opens the file.
class Sharing : public testing::Test {
protected:
    Sharing()
    {
        m_scratch.create(u"Lager.2024"_s, {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double)"_s,
                                           u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 1)"_s,
                                           u"INSERT INTO J (Artikel, Menge) VALUES ('Hafer', 2)"_s});
        jet::engine().release();
        jet::engine().setLockTimeout(50);
    }

    ~Sharing() override { jet::engine().setLockTimeout(5000); }

    std::unique_ptr<jet::Database> open() const { return m_scratch.open(u"Lager.2024"_s); }

    std::string locked() const
    {
        return "3218 Aktualisieren nicht möglich; momentan gesperrt. Datei: '" +
               m_scratch.path(u"Lager.2024"_s).toStdString() + "'.";
    }

    /// Another program that writes one row in a transaction and then, in its second step, commits it.
    std::function<void(int)> writer() const
    {
        return [this, database = std::shared_ptr<jet::Database>()](int step) mutable {
            if (step == 2) return database->Close();
            database = open();
            database->BeginTrans();
            database->Execute(u"INSERT INTO J (Artikel) VALUES ('fremd')"_s);
        };
    }

    Scratch m_scratch;
};

} // namespace

TEST_F(Sharing, ALockIsWaitedForOnceAndThenTold)
{
    Program other([this, connection = std::shared_ptr<jet::sqlite::Connection>()](int step) mutable {
        if (step == 2) return connection->execute("COMMIT");
        const QString path = m_scratch.path(u"Lager.2024"_s);
        connection = std::make_shared<jet::sqlite::Connection>(path, jet::sqlite::Connection::Mode::Existing, 0);
        connection->execute("BEGIN EXCLUSIVE;DELETE FROM J WHERE ID=1"); // keeps readers out as well
    });
    const auto database = open();
    const auto rows = database->OpenRecordset(u"SELECT * FROM J"_s);
    ASSERT_TRUE(other.next());
    constexpr int Patience = 200; // ms
    jet::engine().setLockTimeout(Patience);
    jet::Engine stranger;
    stranger.setLockTimeout(Patience);
    const std::function<void()> calls[] = {
        [&] { stranger.OpenDatabase(m_scratch.path(u"Lager.2024"_s)); },
        [&] { database->OpenRecordset(u"SELECT * FROM J"_s); },
        [&] { database->OpenRecordset(u"SELECT Count(*) AS N FROM Neu"_s, jet::Kind::Snapshot); },
        [&] { (*rows)[u"Menge"]; },
        [&] { rows->FindFirst(u"Menge = 2"_s); },
        [&] { database->BeginTrans(); },
        [&] { database->Execute(u"DELETE FROM J"_s); },
        [&] { database->Execute(u"CREATE TABLE K (A Long)"_s); },
        [&] { database->TableDefs(); },
    };
    for (const auto& call : calls) {
        SCOPED_TRACE(&call - calls);
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(refusal(call), locked());
        EXPECT_LT(clock.elapsed(), Patience * 3 / 2);
    }
    ASSERT_TRUE(other.next());
    EXPECT_EQ(rowsOf(*database, u"SELECT Artikel FROM J"_s), "Hafer");
}

TEST_F(Sharing, LockedEditIsWrittenLater)
{
    Program other(writer());
    const auto database = open();
    const auto rows = database->OpenRecordset(u"SELECT * FROM J ORDER BY ID"_s);
    ASSERT_TRUE(other.next());
    rows->AddNew();
    rows->Set(u"Artikel", u"neu"_s);
    EXPECT_EQ(refusal([&] { rows->Update(); }), locked());
    EXPECT_TRUE(rows->Editing());
    EXPECT_EQ((*rows)[u"Artikel"].toText(), u"neu"_s);
    ASSERT_TRUE(other.next());
    rows->Update();
    EXPECT_FALSE(rows->Editing());

    rows->Edit(); // an edit that changes nothing needs no lock
    rows->Update();
    EXPECT_EQ(rowsOf(*database, u"SELECT ID, Artikel FROM J"_s), "1 | Weizen\n2 | Hafer\n3 | fremd\n4 | neu");
}

TEST_F(Sharing, AForgottenRecordsetLocksNobodyOut)
{
    Program other([this](int) { open()->Execute(u"UPDATE J SET Menge = Menge + 1"_s); });
    const auto database = open();
    const auto dynaset = database->OpenRecordset(u"SELECT * FROM J"_s);
    const auto snapshot = database->OpenRecordset(u"SELECT Sum(Menge) AS S FROM J"_s, jet::Kind::Snapshot);
    const auto table = database->OpenRecordset(u"J"_s);
    table->MoveNext();
    dynaset->FindFirst(u"Menge = 2"_s);
    dynaset->Edit();
    EXPECT_TRUE(other.next());
    dynaset->CancelUpdate();
    EXPECT_EQ((*dynaset)[u"Menge"].toDouble(), 3);
}

TEST_F(Sharing, AKilledProgramsJournalGoesWithItsFile)
{
    const QString year = m_scratch.path(u"Lager.2024"_s);
    const QString copy = m_scratch.path(u"Kopie.2024"_s);
    const QString other = m_scratch.path(u"Lager.vorlage"_s);
    m_scratch.create(u"Lager.vorlage"_s, {u"CREATE TABLE Neu (A Long)"_s});
    Program killed([&, database = std::shared_ptr<jet::Database>()](int) mutable {
        database = open();
        database->Execute(u"ALTER TABLE J ADD COLUMN Notiz Memo"_s);
        database->Execute(u"UPDATE J SET Notiz = '"_s + QString(700'000, u'x') + u"'"_s);
        database->BeginTrans();
        for (int i = 0; i < 40; ++i) // more than is kept in memory, so that the file itself has changed
            database->Execute(u"INSERT INTO J (Artikel, Notiz) VALUES ('halb', '"_s + QString(700'000, u'y') + u"')"_s);
        database->Execute(u"UPDATE J SET Menge = 99"_s);
    });
    ASSERT_TRUE(killed.next());
    killed.kill();
    ASSERT_TRUE(QFile::exists(year + u"-journal"_s)); // or this tests nothing

    sys::FileCopy(year, copy);
    EXPECT_EQ(rowsOf(*jet::engine().OpenDatabase(copy), u"SELECT ID, Artikel, Menge FROM J"_s),
              "1 | Weizen | 1\n2 | Hafer | 2");
    sys::FileCopy(other, year);
    EXPECT_EQ(rowsOf(*open(), u"SELECT Count(*) AS N FROM Neu"_s), "0");
}

TEST_F(Sharing, TheJournalOfAnotherProgramsDatabaseIsLeftAlone)
{
    const QString foreign = m_scratch.path(u"fremd.db"_s);
    const auto write = [](const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(path.endsWith(u"-journal") ? 0 : 68); // where SQLite keeps the number of the program
        file.write(bytes);
    };
    m_scratch.create(u"fremd.db"_s)->Close();
    jet::engine().release();
    write(foreign, QByteArray(4, '\0'));
    write(foreign + u"-journal"_s, QByteArray(600, '\0')); // begun, nothing in it yet
    write(m_scratch.path(u"Notiz.txt"_s), "kein Bestand");
    write(m_scratch.path(u"Notiz.txt-journal"_s), "Rest");
    for (const QString& name : {u"fremd.db"_s, u"Notiz.txt"_s})
        sys::FileCopy(m_scratch.path(name), m_scratch.path(u"Kopie"_s));
    EXPECT_TRUE(QFile::exists(foreign + u"-journal"_s));
    EXPECT_FALSE(QFile::exists(m_scratch.path(u"Notiz.txt-journal"_s)));
}

TEST_F(Sharing, AStatementThatFailsLeavesTheTransactionAsItWas)
{
    const auto database = open();
    database->BeginTrans();
    database->Execute(u"UPDATE J SET Menge = 5 WHERE ID = 1"_s);
    EXPECT_EQ(refusal([&] { database->Execute(u"SELECT 1 / (ID - 2) AS Q INTO K FROM J"_s); }),
              "11 Division durch Null");
    EXPECT_THROW(sys::FileCopy(m_scratch.path(u"Lager.2024"_s), m_scratch.path(u"Kopie"_s)), sys::FileError);
    database->Close();
    EXPECT_EQ(rowsOf(*open(), u"SELECT Menge FROM J"_s), "5\n2");
    EXPECT_EQ(open()->TableDefs().size(), 1U);
}

TEST_F(Sharing, CopyingRowsOutKeepsNobodyFromBooking)
{
    m_scratch.create(u"Auswertung.mdb"_s)->Close();
    Program other(writer());
    ASSERT_TRUE(other.next());
    const QString target = m_scratch.path(u"Auswertung.mdb"_s);
    EXPECT_EQ(open()->Execute(u"SELECT * INTO JOURNAL IN '"_s + target + u"' FROM J"_s), 2);
    ASSERT_TRUE(other.next());
    const QString detour = m_scratch.path(u"../"_s) + QFileInfo(m_scratch.path({})).fileName() + u"/Lager.2024"_s;
    EXPECT_EQ(open()->Execute(u"SELECT * INTO K IN '"_s + detour + u"' FROM J"_s), 3); // the same file by another name
}

TEST_F(Sharing, SeesWhatOthersDefine)
{
    jet::Engine engine;
    const auto other = engine.OpenDatabase(m_scratch.path(u"Lager.2024"_s));
    const auto database = open();
    EXPECT_EQ(rowsOf(*database, u"SELECT * FROM J WHERE ID = 1"_s), "1 | Weizen | 1");
    other->Execute(u"ALTER TABLE J ADD COLUMN Ort Text(5)"_s);
    EXPECT_EQ(rowsOf(*database, u"SELECT * FROM J WHERE ID = 1"_s), "1 | Weizen | 1 | NULL");
    EXPECT_EQ(database->TableDefs().front().fields.back().name, u"Ort"_s);
    EXPECT_EQ(writtenType(database->TableDefs().front().fields.back()), u"Text(5)"_s);
    other->Execute(u"DROP TABLE J"_s);
    other->Execute(u"CREATE TABLE J (Anders Text(5))"_s);
    EXPECT_EQ(rowsOf(*database, u"SELECT * FROM J"_s), "");
    EXPECT_EQ(refusal([&] { database->OpenRecordset(u"SELECT ID FROM J"_s); }).substr(0, 5), "3061 ");
}

TEST_F(Sharing, NoticesAnExchangedFile)
{
    EXPECT_EQ(rowsOf(*open(), u"SELECT Count(*) AS N FROM J"_s), "2"); // the connection stays
    m_scratch.create(u"anders"_s, {u"CREATE TABLE J (ID Long)"_s})->Close();
    jet::engine().release(m_scratch.path(u"anders"_s));
    ASSERT_TRUE(QFile::remove(m_scratch.path(u"Lager.2024"_s)));
    EXPECT_EQ(refusal([&] { open(); }).substr(0, 5), "3024 ");
    ASSERT_TRUE(QFile::rename(m_scratch.path(u"anders"_s), m_scratch.path(u"Lager.2024"_s)));
    EXPECT_EQ(rowsOf(*open(), u"SELECT Count(*) AS N FROM J"_s), "0");
}

TEST_F(Sharing, NoticesAFileExchangedWhileItWasOpen)
{
    m_scratch.create(u"anders"_s, {u"CREATE TABLE J (ID Long)"_s})->Close();
    jet::engine().release(m_scratch.path(u"anders"_s));
    const auto database = open();
    database->Execute(u"DELETE FROM J WHERE ID = 1"_s);
    ASSERT_TRUE(QFile::remove(m_scratch.path(u"Lager.2024"_s)));
    ASSERT_TRUE(QFile::rename(m_scratch.path(u"anders"_s), m_scratch.path(u"Lager.2024"_s)));
    EXPECT_EQ(rowsOf(*database, u"SELECT Count(*) AS N FROM J"_s), "1"); // who has it open keeps it
    database->Close();
    EXPECT_EQ(rowsOf(*open(), u"SELECT Count(*) AS N FROM J"_s), "0");
}

TEST_F(Sharing, ShowsATransactionWhenItIsCommitted)
{
    jet::Engine other;
    const auto database = open();
    const auto reader = other.OpenDatabase(m_scratch.path(u"Lager.2024"_s));
    const auto rows = database->OpenRecordset(u"J"_s);
    database->BeginTrans();
    rows->AddNew();
    rows->Set(u"Artikel", u"neu"_s);
    rows->Update();
    EXPECT_EQ(rowsOf(*database, u"SELECT Count(*) AS N FROM J"_s), "3");
    EXPECT_EQ(rowsOf(*reader, u"SELECT Count(*) AS N FROM J"_s), "2");
    database->CommitTrans();
    EXPECT_EQ(rowsOf(*reader, u"SELECT Count(*) AS N FROM J"_s), "3");
    const auto twin = open(); // on the same connection
    database->BeginTrans();   // the next one begins anew
    EXPECT_EQ(refusal([&] { twin->BeginTrans(); }), locked());
    database->Execute(u"DELETE FROM J"_s);
    database->Close();
    EXPECT_EQ(rowsOf(*reader, u"SELECT Count(*) AS N FROM J"_s), "0");
}
