#include "tests/platform/jet/Scratch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Link : public testing::Test {
protected:
    Link()
    {
        m_master = jet::engine().CreateDatabase(m_scratch.path(u"Grundstamm.mdb"_s), u";pwd=RT-58KX"_s);
        m_master->Execute(u"CREATE TABLE HANDLER (KurzKu Text(15), NAME Text(50))"_s);
        m_master->Execute(u"INSERT INTO HANDLER VALUES ('ADL', 'Adler')"_s);
        m_print = m_scratch.create(u"Lagerlieferschein.mdb"_s, {u"CREATE TABLE Uberschrift (Kurzku Text(15))"_s,
                                                                u"INSERT INTO Uberschrift VALUES ('adl')"_s});
    }

    std::string link(const QString& name, const QString& connect, const QString& source = u"HANDLER"_s) const
    {
        return refusal([&] { m_print->CreateTableDef(name, connect, source); });
    }

    QString connectText() const { return u"Ms Access;pwd=RT-58KX;DATABASE="_s + m_scratch.path(u"Grundstamm.mdb"_s); }

    Scratch m_scratch;
    std::unique_ptr<jet::Database> m_master;
    std::unique_ptr<jet::Database> m_print;
};

} // namespace

TEST_F(Link, ReadsTheLiveTable)
{
    ASSERT_EQ(link(u"HANDLER"_s, connectText()), "");
    m_master->Execute(u"INSERT INTO HANDLER VALUES ('BER', 'Berger')"_s);
    EXPECT_EQ(rowsOf(*m_print, u"SELECT * FROM Handler ORDER BY NAME DESC"_s), "BER | Berger\nADL | Adler");
    EXPECT_EQ(rowsOf(*m_print, u"HANDLER"_s), "ADL | Adler\nBER | Berger");
    const QString joined =
        u"SELECT u.Kurzku, h.NAME FROM Uberschrift AS u LEFT JOIN HANDLER AS h ON u.Kurzku = h.KurzKu"_s;
    EXPECT_EQ(rowsOf(*m_print, joined), "adl | Adler");

    m_print->Close();
    jet::engine().release();
    m_print = m_scratch.open(u"Lagerlieferschein.mdb"_s);
    EXPECT_EQ(rowsOf(*m_print, joined), "adl | Adler");
    m_master->Execute(u"UPDATE HANDLER SET NAME = 'Adler & Sohn' WHERE KurzKu = 'ADL'"_s);
    EXPECT_EQ(rowsOf(*m_print, joined), "adl | Adler & Sohn");
}

TEST_F(Link, IsListedAmongTheTables)
{
    ASSERT_EQ(link(u"Kunden"_s, connectText()), "");
    int links = 0;
    for (const jet::TableDef& table : m_print->TableDefs()) {
        if (table.connect.isEmpty()) {
            EXPECT_EQ(table.name, u"Uberschrift"_s); // no system table shows
            EXPECT_EQ(table.fields.size(), 1U);
            continue;
        }
        ++links;
        EXPECT_EQ(table.name, u"Kunden"_s);
        EXPECT_EQ(table.sourceTable, u"HANDLER"_s);
        EXPECT_EQ(table.connect, connectText());
    }
    EXPECT_EQ(links, 1);
}

TEST_F(Link, IsOnlyRead)
{
    ASSERT_EQ(link(u"HANDLER"_s, connectText()), "");
    const auto rows = m_print->OpenRecordset(u"HANDLER"_s);
    EXPECT_FALSE(rows->Updatable());
    EXPECT_EQ(refusal([&] { rows->Edit(); }).substr(0, 5), "3027 ");
    EXPECT_NE(refusal([&] { m_print->Execute(u"DELETE FROM HANDLER"_s); }), "");
    EXPECT_EQ(rowsOf(*m_master, u"SELECT KurzKu FROM HANDLER"_s), "ADL");
}

TEST_F(Link, DoesNotReachIntoATransaction)
{
    ASSERT_EQ(link(u"HANDLER"_s, connectText()), "");
    m_print->BeginTrans();
    EXPECT_EQ(refusal([&] { m_print->OpenRecordset(u"HANDLER"_s); }),
              "3251 Auf andere Dateien kann in einer Transaktion nicht zugegriffen werden.");
    m_print->CommitTrans();
    EXPECT_EQ(rowsOf(*m_print, u"HANDLER"_s), "ADL | Adler");
}

TEST_F(Link, IsCheckedWhenItIsMade)
{
    const QString missing = m_scratch.path(u"Fehlt.mdb"_s);
    EXPECT_EQ(link(u"H"_s, u"MS Access;DATABASE="_s + missing),
              "3024 Datei '" + missing.toStdString() + "' nicht gefunden.");
    EXPECT_EQ(link(u"H"_s, u";DATABASE="_s + m_scratch.path(u"Grundstamm.mdb"_s)).substr(0, 5), "3031 ");
    EXPECT_EQ(link(u"H"_s, connectText(), u"Kunden"_s).substr(0, 63),
              "3011 Das Datenbankmodul konnte das Objekt 'Kunden' nicht finden");
    EXPECT_EQ(link(u"UBERSCHRIFT"_s, connectText()), "3010 Tabelle 'UBERSCHRIFT' existiert bereits.");
    EXPECT_EQ(m_print->TableDefs().size(), 1U);
}

TEST_F(Link, ACopyIntoAFileNeedsItsPasswordToo)
{
    const QString path = m_scratch.path(u"Grundstamm.mdb"_s);
    const auto copy = [&](const QString& target) {
        return refusal([&] { m_print->Execute(u"SELECT * INTO Kopie IN "_s + target + u" FROM Uberschrift"_s); });
    };
    EXPECT_EQ(copy(u'\'' + path + u'\'').substr(0, 5), "3031 ");
    EXPECT_EQ(copy(u"'' [;DATABASE="_s + path + u";PWD=falsch]"_s).substr(0, 5), "3031 ");
    EXPECT_EQ(copy(u"'' [;DATABASE="_s + path + u";PWD=RT-58KX]"_s), "");
    EXPECT_EQ(rowsOf(*m_master, u"SELECT * FROM Kopie"_s), "adl");
}
