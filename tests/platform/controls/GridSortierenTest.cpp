#include "platform/controls/GridSortieren.h"
#include "tests/platform/controls/GridScreen.h"

#include <QHeaderView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class GridSortierenTest : public GridScreen {
protected:
    QString order() const { return m_data.RecordSource().section(u"LAGERJOURNAL"_s, 1).simplified(); }
    QString marked() const
    {
        QStringList captions;
        for (int i = 0; i < m_grid->ColumnCount(); ++i)
            if (m_grid->Columns(i).HeadForeColor() == QColor(0, 0, 192)) captions.append(m_grid->Columns(i).Caption());
        return captions.join(u' ');
    }
};

} // namespace

TEST_F(GridSortierenTest, TheSameHeaderTurnsTheOrderEachTime)
{
    QObject::connect(m_grid, &DataGrid::HeadClick, [this](int column) {
        GridSortieren(m_data, *m_grid, column,
                      column == 2 ? Sortierung{.ausdruck = u"Menge"_s} : Sortierung{.zweitesFeld = u"Datum"_s});
    });
    show();
    const struct {
        int column;
        const char* order;
        const char* first;
        const char* last;
    } clicks[] = {
        {1, "ORDER BY [ARTIKEL] ASC, [Datum] ASC", "Gerste", "Weizen"},
        {1, "ORDER BY [ARTIKEL] DESC, [Datum] DESC", "Weizen", "Gerste"},
        {1, "ORDER BY [ARTIKEL] ASC, [Datum] ASC", "Gerste", "Weizen"},
        {2, "ORDER BY Menge ASC", "Hafer", "Weizen"},
        {2, "ORDER BY Menge DESC", "Weizen", "Hafer"},
        {0, "ORDER BY [Datum] ASC", "Weizen", "Raps"},
        {0, "ORDER BY [Datum] DESC", "Raps", "Weizen"},
    };
    for (const auto& c : clicks) {
        clickHeader(c.column);
        EXPECT_EQ(order(), QString::fromUtf8(c.order));
        EXPECT_EQ(article(0), QString::fromUtf8(c.first));
        EXPECT_EQ(article(5), QString::fromUtf8(c.last));
        EXPECT_EQ(marked(), m_grid->Columns(c.column).Caption());
        EXPECT_EQ(current(), QString::fromUtf8(c.first));
        EXPECT_TRUE(m_grid->hasFocus());
    }
}

TEST_F(GridSortierenTest, WritesWhatIsPendingEvenBesideTheColumns)
{
    show();
    const QString source = m_data.RecordSource();
    m_data.Edit();
    m_data.Set(u"Kommentar", u"neu"_s);
    QObject::connect(m_grid, &DataGrid::HeadClick, [this](int column) { GridSortieren(m_data, *m_grid, column); });
    QHeaderView* const header = m_grid->horizontalHeader();
    header->setStretchLastSection(false);
    header->resizeSection(3, 20);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->viewport()->width() - 2, header->viewport()->height() / 2));
    EXPECT_EQ(m_data.RecordSource(), source);
    EXPECT_EQ(m_farm.zeigt(2024, u"SELECT Kommentar FROM LAGERJOURNAL WHERE ID = 1"_s), QStringList(u"neu"_s));
}

TEST_F(GridSortierenTest, AnOrderWithinANameIsCutAndRefused)
{
    m_data.setRecordSource(u"SELECT *, Menge AS Zugang FROM LAGERJOURNAL WHERE Artikel <> 'Vorderachsöl'"_s);
    show();
    EXPECT_THROW(GridSortieren(m_data, *m_grid, 1), jet::Error);
    EXPECT_FALSE(m_data.isOpen());
    EXPECT_EQ(m_grid->model()->rowCount(), 0);
    EXPECT_EQ(marked(), QString());
    EXPECT_TRUE(m_grid->updatesEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    m_data.setRecordSource(u"SELECT *, Menge AS Zugang FROM LAGERJOURNAL"_s);
    GridSortieren(m_data, *m_grid, 1);
    EXPECT_EQ(marked(), u"Artikel"_s);
    EXPECT_EQ(article(0), u"Gerste"_s);
}
