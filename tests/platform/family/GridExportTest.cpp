#include "platform/family/GridExport.h"
#include "tests/platform/controls/GridScreen.h"
#include "tests/platform/family/Tabellenblatt.h"
#include "tests/platform/system/Rekorder.h"

#include <zablager/FileError.h>

#include <QDir>
#include <QScopeGuard>

#include <csignal>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

bool goOn(qsizetype, qsizetype)
{
    return true;
}

class GridExportTest : public GridScreen {
protected:
    GridExportTest() { m_grid->setTitle(u"Journal 2024"_s); }
    QString write(const QString& name = {})
    {
        return m_export.Write(*m_grid, name, m_directory.path(), goOn);
    }
    QStringList files() const
    {
        return QDir(m_directory.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    /// Six rows doubled so often, each with a remark of its own.
    void fillUp(int doublings)
    {
        for (int i = 0; i < doublings; ++i)
            m_farm.fuehreAus(2024,
                             u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Menge) SELECT Datum, Artikel, Menge"
                             u" FROM LAGERJOURNAL"_s);
        m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Kommentar = 'Lieferung ' & ID"_s);
        m_data.Refresh();
    }

    QTemporaryDir m_directory;
    GridExport m_export;
};

} // namespace

TEST_F(GridExportTest, HandsOverWhatTheGridShows)
{
    NEEDS_OPENPYXL;
    for (const auto& change :
         {u"Kommentar = '=1+1'"_s, u"Kommentar = 'zwei\r\nZeilen', Menge = 2.8E-17"_s,
          u"Kommentar = '<b>&amp;\x01', Datum = #06/05/2024 13:45:30#"_s,
          u"Kommentar = '0815', Datum = #12/30/1899#"_s, u"Artikel = NULL, Datum = NULL"_s}) {
        static int id = 0;
        m_farm.fuehreAus(2024,
                         u"UPDATE LAGERJOURNAL SET "_s + change + u" WHERE ID = "_s + QString::number(++id));
    }
    m_grid->addColumn(u"Menge"_s, u"Menge"_s, u"#,0.0##"_s);
    m_grid->addColumn(u"Nummer"_s, u"ID"_s);
    m_grid->addColumn(u"Ort"_s, u"LagerortKurzKu"_s).setVisible(false);
    m_data.setRecordSource(u"Select IIF(Menge < 0, -Menge,0) as Abgang, IIF(Menge > 0, Menge,0) as Zugang, *"
                           u" FROM LAGERJOURNAL WHERE ID < 7 ORDER BY ID DESC"_s);
    m_data.Refresh();
    m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID = 6"_s); // another program does
    EXPECT_EQ(
        tabellenblatt(write()),
        (QStringList{
            u"Journal 2024 A2 A1:F6 landscape $1:$1"_s,
            u"*Datum*^ | *Artikel* | *Zugang*> | *Kommentar* | *Menge*> | *Nummer*>"_s,
            u" |  |  |  | 0 [#,##0.0##] | 5 [General]"_s,
            u"30.12.1899 | Mais | 0.005 [#,##0.00] | 0815 | 0.005 [#,##0.0##] | 4 [General]"_s,
            u"2024-06-05 13:45:30 [dd.mm.yyyy hh:mm:ss] | Hafer |  | <b>&amp;_x0001_ | "
            u"-20 [#,##0.0##] | 3 [General]"_s,
            u"2024-04-03 [dd.mm.yyyy] | Gerste | 0 [#,##0.00] | zwei Zeilen | 0 [#,##0.0##] | 2 [General]"_s,
            u"2024-02-01 [dd.mm.yyyy] | Weizen | 1234.5 [#,##0.00] | =1+1 | 1234.5 [#,##0.0##] | 1"
            u" [General]"_s,
        }));
}

TEST_F(GridExportTest, LeavesFormerFilesAloneAndFindsNamesThatAreAllowed)
{
    NEEDS_OPENPYXL;
    m_data.Refresh();
    const QString longName = u"Jahr 2024/25: [Halle*] und noch viel mehr"_s;
    EXPECT_EQ(write(), m_directory.filePath(u"Journal 2024.xlsx"_s));
    EXPECT_EQ(write(), m_directory.filePath(u"Journal 2024 (2).xlsx"_s));
    const QString file = write(longName);
    EXPECT_EQ(file, m_directory.filePath(u"Jahr 2024-25- [Halle-] und noch viel mehr.xlsx"_s));
    EXPECT_EQ(tabellenblatt(file).value(0), u"Jahr 2024-25- -Halle-- und noch A2 A1:D7 landscape $1:$1"_s);
    EXPECT_EQ(files().size(), 3);
}

TEST_F(GridExportTest, LeavesNothingOfWhatEndsBeforeTime)
{
    fillUp(7); // more than one block
    for (const qsizetype row : {0, 500}) {
        const auto until = [row](qsizetype done, qsizetype) { return done < row; };
        EXPECT_EQ(m_export.Write(*m_grid, {}, m_directory.path(), until), QString());
        EXPECT_EQ(files(), QStringList());
    }
    const QString missing = m_directory.filePath(u"fehlt"_s);
    try {
        m_export.Write(*m_grid, {}, missing, goOn);
        ADD_FAILURE();
    } catch (const sys::FileError& error) {
        EXPECT_TRUE(error.text().endsWith(missing + u"/Journal 2024.xlsx"_s)) << error.what();
    }
    m_grid->Columns(3).setDataField(u"Fehlt"_s);
    EXPECT_THROW(write(), jet::Error);
    EXPECT_EQ(files(), QStringList());
}

// The file is read again in pieces of 64 KiB; the sheet, which holds its captions, ends with a tag.
TEST_F(GridExportTest, AcceptsASheetThatEndsAcrossTwoPieces)
{
    const auto caption = [this](int column, int letters) {
        m_grid->Columns(column).setCaption(QString(letters, u'x'));
    };
    m_data.Refresh();
    caption(1, 31000); // the longest are 32767
    caption(2, 32000);
    for (int letters = 1; letters < 1000; letters += 10) {
        caption(3, letters);
        ASSERT_NO_THROW(write()) << letters;
    }
}

TEST_F(GridExportTest, IsWholeOrNotThereWhereverTheDiskIsFull)
{
    NEEDS_OPENPYXL;
    fillUp(5);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN); // a write fails instead of ending the process
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto restore = qScopeGuard([&] {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    });
    QString file;
    int failures = 0;
    constexpr rlim_t Step = 509;
    for (rlim_t room = Step; file.isEmpty(); room += Step) {
        const rlimit full{room, before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
        try {
            file = write();
        } catch (const sys::FileError& error) {
            ++failures;
            ASSERT_EQ(error.number(), sys::FileErrorNumber::DiskFull) << room << error.what();
            ASSERT_TRUE(error.text().endsWith(u".xlsx"_s)) << error.what(); // not its draft
            ASSERT_EQ(files(), QStringList()) << room;
        }
    }
    EXPECT_GT(failures, 50);
    EXPECT_EQ(tabellenblatt(file).size(), m_data.RecordCount() + 2);
}

TEST_F(GridExportTest, NamesTheFileThatNoProgramOpens)
{
    m_data.Refresh();
    const Rekorder others(u"firefox"_s);
    m_farm.meldungen().beantworteAlle(sys::Answer::Abort);
    m_export.Export(*m_grid, {}, m_directory.path(), goOn);
    const QString file = m_directory.filePath(u"Journal 2024.xlsx"_s);
    EXPECT_TRUE(messages().join(u'|').endsWith(u"kein Programm, das die Datei '"_s + file + u"' öffnet."_s));
    EXPECT_EQ(files(), QStringList(u"Journal 2024.xlsx"_s));
}
