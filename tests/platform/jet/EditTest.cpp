#include "platform/jet/sqlite/Connection.h"
#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const char* const UpdateWithoutEdit = "3020 Update oder CancelUpdate ohne AddNew oder Edit.";
const char* const ConversionFailed = "3421 Datentyp-Konvertierungsfehler. Feld: '%'.";
const char* const FieldTooLong = "3163 Das Feld ist zu klein für die Datenmenge, die Sie hinzufügen wollten. "
                                 "Versuchen Sie, weniger Daten einzufügen. Feld: '%', höchstens # Zeichen.";
const char* const Overflow = "6 Überlauf. Feld: '%'.";
const char* const ChangedByAnother = "3197 Das Datenbankmodul hat den Vorgang angehalten, da Sie und ein weiterer "
                                     "Benutzer gleichzeitig versuchen, dieselben Daten zu verändern.";

class Edit : public testing::Test {
protected:
    void elsewhere(const QString& statement) const
    {
        m_other.OpenDatabase(m_scratch.path(u"Lager.2024"_s))->Execute(statement);
    }

    std::string journal() const { return rowsOf(*m_database, u"SELECT * FROM J"_s); }

    Scratch m_scratch;
    mutable jet::Engine m_other;
    std::unique_ptr<jet::Database> m_database = m_scratch.create(
        u"Lager.2024"_s,
        {u"CREATE TABLE J (ID Counter PRIMARY KEY, Artikel Text(10), Menge Double, Fertig Boolean)"_s,
         u"INSERT INTO J (Artikel, Menge) VALUES ('Weizen', 1)"_s, u"INSERT INTO J (Artikel) VALUES ('Hafer')"_s});
};

} // namespace

TEST_F(Edit, NeedsABeginning)
{
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM J"_s);
    EXPECT_EQ(refusal([&] { rows->Update(); }), UpdateWithoutEdit);
    EXPECT_EQ(refusal([&] { rows->CancelUpdate(); }), UpdateWithoutEdit);
    EXPECT_EQ(refusal([&] { rows->Set(u"Menge", 1); }), UpdateWithoutEdit);
    EXPECT_FALSE(rows->Editing());
    rows->MoveLast();
    rows->MoveNext();
    EXPECT_EQ(refusal([&] { rows->Edit(); }), "3021 Kein aktueller Datensatz.");
}

TEST_F(Edit, ShowsThePendingRow)
{
    const auto rows = m_database->OpenRecordset(u"SELECT *, Menge * 2 AS Doppelt FROM J"_s);
    rows->Edit();
    rows->Set(u"MENGE", 5);
    EXPECT_EQ((*rows)[u"Menge"].toDouble(), 5);
    EXPECT_EQ((*rows)[u"Artikel"].toText(), u"Weizen"_s);
    EXPECT_EQ(refusal([&] { rows->Set(u"Preis", 1); }), "3265 Element in dieser Auflistung nicht gefunden.");
    EXPECT_EQ(refusal([&] { rows->Set(u"ID", 7); }), "3164 Das Feld kann nicht aktualisiert werden.");
    EXPECT_EQ(refusal([&] { rows->Set(u"Doppelt", 7); }), "3164 Das Feld kann nicht aktualisiert werden.");
    rows->Update();
    EXPECT_EQ((*rows)[u"Doppelt"].toDouble(), 10); // computed afresh

    rows->AddNew();
    EXPECT_TRUE((*rows)[u"Artikel"].isNull());
    EXPECT_EQ(written((*rows)[u"Fertig"]), u"0"_s); // never empty
    rows->CancelUpdate();
    EXPECT_EQ((*rows)[u"Artikel"].toText(), u"Weizen"_s);
    EXPECT_EQ(journal(), "1 | Weizen | 5 | 0\n2 | Hafer | NULL | 0");
}

TEST_F(Edit, IsLostByAnyMove)
{
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM J"_s);
    const std::function<void()> moves[] = {
        [&] { rows->MoveNext(); },
        [&] { rows->MoveFirst(); },
        [&] { rows->FindFirst(u"ID = 2"_s); },
        [&] { rows->FindFirst(u"ID = 99"_s); },
        [&] { rows->SetBookmark(rows->GetBookmark()); },
    };
    for (const auto& move : moves) {
        rows->MoveFirst();
        rows->Edit();
        rows->Set(u"Menge", 99);
        EXPECT_TRUE(rows->Editing());
        move();
        EXPECT_FALSE(rows->Editing());
        EXPECT_EQ(refusal([&] { rows->Update(); }), UpdateWithoutEdit);
    }
    rows->AddNew();
    rows->MoveLast();
    EXPECT_EQ(journal(), "1 | Weizen | 1 | 0\n2 | Hafer | NULL | 0");
}

TEST_F(Edit, ConvertsByGermanRules)
{
    m_database->Execute(
        u"CREATE TABLE W (Text3 Text(3), Text5 Text(5), Notiz Memo, Zahl Double, Lang Long, Kurz Short, "
        "Klein Byte, Geld Currency, Einfach Single, Tag Date, Ja Boolean)"_s);
    const auto rows = m_database->OpenRecordset(u"W"_s);
    rows->AddNew();
    rows->Update();
    rows->MoveFirst();
    const auto stored = [&](QStringView field, const jet::Value& value) {
        const std::string refused = refusal([&] {
            rows->Edit();
            rows->Set(field, value);
            rows->Update();
        });
        if (rows->Editing()) rows->CancelUpdate();
        return refused.empty() ? written((*rows)[field]).toStdString() : refused;
    };
    const struct {
        const char16_t* field;
        jet::Value value;
        std::string wanted;
    } cases[] = {
        {u"Text3", 100, "'100'"},
        {u"Text3", 1.5, "1,5"},
        {u"Text3", 1000, FieldTooLong}, // a price factor of four characters
        {u"Text3", 0.25, FieldTooLong}, // "0,25" are four as well
        {u"Text5", u"äöüß€"_s, "äöüß€"},
        {u"Text5", u"äöüß€x"_s, FieldTooLong},
        {u"Text5", u""_s, "''"},
        {u"Text5", {}, "NULL"},
        {u"Notiz", QString(70000, u'x'), std::string(70000, 'x')},
        {u"Zahl", u"1,5"_s, "1.5"},
        {u"Zahl", u"1.5"_s, "15"}, // the dot groups
        {u"Zahl", u"1.234,5"_s, "1234.5"},
        {u"Zahl", u""_s, ConversionFailed},
        {u"Zahl", u"abc"_s, ConversionFailed},
        {u"Zahl", std::numeric_limits<double>::infinity(), Overflow},
        {u"Zahl", std::numeric_limits<double>::quiet_NaN(), Overflow},
        {u"Einfach", -1e300, Overflow},
        {u"Lang", 2.5, "2"},
        {u"Lang", 3.5, "4"},
        {u"Lang", u"7"_s, "7"},
        {u"Lang", 3e9, ConversionFailed},
        {u"Kurz", -32768, "-32768"},
        {u"Kurz", 32768, ConversionFailed},
        {u"Klein", 255, "255"},
        {u"Klein", -1, ConversionFailed},
        {u"Geld", 1.23456, "1.2346"},
        {u"Tag", u"31.12.2024"_s, "31.12.2024"},
        {u"Tag", QDate(2024, 2, 29), "29.02.2024"},
        {u"Tag", QDateTime(QDate(2024, 3, 5), QTime(13, 45), Qt::OffsetFromUTC, 3600), "05.03.2024 13:45:00"},
        {u"Tag", QDateTime(QDate(2024, 3, 5), QTime(12, 45), Qt::UTC), "05.03.2024 12:45:00"}, // the same moment
        {u"Tag", QDate(), ConversionFailed},
        {u"Tag", QDate(12024, 3, 5), ConversionFailed},
        {u"Tag", QDate(99, 3, 5), ConversionFailed},
        {u"Tag", u""_s, ConversionFailed},
        {u"Tag", u"32.1.2024"_s, ConversionFailed},
        {u"Tag", {}, "NULL"},
        {u"Ja", true, "-1"},
        {u"Ja", 7, "-1"},
        {u"Ja", u"Falsch"_s, "0"},
        {u"Ja", u"Wahr"_s, "-1"},
        {u"Ja", u"False"_s, "0"},
        {u"Ja", u"True"_s, "-1"},
        {u"Ja", {}, "0"},
        {u"Ja", u"abc"_s, ConversionFailed},
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(QStringView(given.field).toString().toStdString() + ' ' +
                     written(given.value).left(20).toStdString());
        const QString name = QStringView(given.field).toString();
        QString wanted = QString::fromStdString(given.wanted).replace(u'%', name);
        if (given.wanted == FieldTooLong) wanted.replace(u'#', name.right(1));
        EXPECT_EQ(stored(given.field, given.value), wanted.toStdString());
    }
}

// Written past the engine, or before it refused them. The row can be read and mended, and tells what is wrong with it.
TEST_F(Edit, ValuesThatNoColumnTakesAreReadableAndGoNoFurther)
{
    jet::sqlite::Connection past(m_scratch.path(u"Lager.2024"_s), jet::sqlite::Connection::Mode::Existing, 0);
    EXPECT_EQ(refusal([&] { past.execute("UPDATE J SET Fertig=1 WHERE ID=1"); }),
              "3317 Der Wert verletzt die Gültigkeitsregel: 0 (Nein) oder -1 (Ja). Feld: 'Fertig'.");
    past.execute("PRAGMA ignore_check_constraints=1");
    past.execute("UPDATE J SET Fertig=1,Menge=-9e999 WHERE ID=1");
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM J"_s);
    EXPECT_EQ((*rows)[u"Menge"].toText(), u"-1,#INF"_s);
    EXPECT_EQ((*m_database->OpenRecordset(u"SELECT -Menge AS Abgang, * FROM J"_s))[u"Abgang"].toText(), u"1,#INF"_s);
    EXPECT_EQ(refusal([&] { rowsOf(*m_database, u"SELECT Sum(Menge) AS S FROM J"_s); }), "6 Überlauf.");
    EXPECT_EQ(refusal([&] { m_database->Execute(u"INSERT INTO J (Menge) SELECT Menge FROM J"_s); }),
              "6 Überlauf. Feld: 'Menge'.");
    EXPECT_EQ(refusal([&] { m_database->Execute(u"INSERT INTO J (Fertig) SELECT Fertig FROM J"_s); }),
              "3317 Der Wert verletzt die Gültigkeitsregel: 0 (Nein) oder -1 (Ja). Feld: 'Fertig'.");
    rows->Edit();
    rows->Set(u"Menge", 4);
    rows->Set(u"Fertig", false);
    rows->Update();
    EXPECT_EQ(journal(), "1 | Weizen | 4 | 0\n2 | Hafer | NULL | 0");
}

TEST_F(Edit, GivesWayToAnotherUsersChange)
{
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM J"_s);
    rows->Edit();
    rows->Set(u"Artikel", u"Dinkel"_s);
    elsewhere(u"UPDATE J SET Menge = 77 WHERE ID = 1"_s);
    EXPECT_EQ(refusal([&] { rows->Update(); }), ChangedByAnother);
    EXPECT_TRUE(rows->Editing());
    rows->CancelUpdate();
    EXPECT_EQ((*rows)[u"Menge"].toDouble(), 77);

    rows->Edit();
    rows->Set(u"Artikel", u"Dinkel"_s);
    rows->Update();
    rows->Edit();
    elsewhere(u"DELETE FROM J WHERE ID = 1"_s);
    rows->Set(u"Menge", 1);
    EXPECT_EQ(refusal([&] { rows->Update(); }), "3167 Datensatz ist gelöscht.");
    EXPECT_EQ(journal(), "2 | Hafer | NULL | 0");
}

TEST_F(Edit, WorksWithoutAnyKey)
{
    m_database->Execute(u"CREATE TABLE Druck (ID Long, Artikel Text(10))"_s);
    const auto rows = m_database->OpenRecordset(u"SELECT * FROM Druck"_s);
    for (const QString& article : {u"a"_s, u"a"_s, u"b"_s}) {
        rows->AddNew();
        rows->Set(u"Artikel", article);
        rows->Update();
    }
    rows->MoveFirst();
    rows->MoveNext();
    rows->Edit();
    rows->Set(u"ID", 5);
    rows->Update();
    rows->MoveNext();
    rows->Delete();
    EXPECT_EQ(rowsOf(*m_database, u"SELECT * FROM Druck"_s), "NULL | a\n5 | a"); // of two equal rows only the one meant
}
