#include "platform/controls/GridSortieren.h"
#include "platform/controls/Wiring.h"
#include "tests/platform/controls/GridScreen.h"

#include <QApplication>
#include <QHeaderView>

using namespace Qt::StringLiterals;

// What a screen does with the rows of a grid: delete and sort them.

TEST_F(GridScreen, DeletesTheSelectedRowsOrElseTheCurrentOne)
{
    const struct {
        QString steps;
        QStringView asked, left, after; // asked: the current row at each BeforeDelete
    } cases[] = {
        {u"{Down}"_s, u"Gerste", u"Weizen Hafer Mais Roggen Raps", u"Hafer: Hafer"},
        {u"5"_s, u"Raps", u"Weizen Gerste Hafer Mais Roggen", u"Roggen: Roggen"},
        {u"0 +3 +4"_s, u"Weizen Mais Roggen", u"Gerste Hafer Raps", u"Raps: Raps"},
        {u"0 +2 +2"_s, u"Hafer", u"Weizen Gerste Mais Roggen Raps", u"Mais: Mais"}, // the current one, once taken out
        {u"{Ctrl+A}"_s, u"Weizen Gerste Hafer Mais Roggen Raps", u"", u"-:"},
        {{}, u"Weizen", u"Gerste Hafer Mais Roggen Raps", u"Gerste: Gerste"}, // not the one that alone is selected
    };
    QStringList asked;
    QObject::connect(m_grid, &DataGrid::BeforeDelete, [&](Cancel&, bool& prompt) {
        asked.append(current());
        if (m_grid->DeletesSeveral()) {
            EXPECT_EQ(act({}), current() + u": "_s + current());
        }
        prompt = false;
    });
    change(u"SELECT * INTO Vorher IN '"_s + m_data.DatabaseName() + u"' FROM LAGERJOURNAL"_s);
    for (const auto& c : cases) {
        change(u"DELETE FROM LAGERJOURNAL"_s);
        change(u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Menge) SELECT Datum, Artikel, Menge FROM Vorher"_s);
        show();
        if (c.steps.isEmpty()) m_grid->SelBookmarks().Add(m_data.Recordset().BookmarkAt(2));
        asked.clear();
        EXPECT_EQ(act(c.steps + u" {Del}"_s), c.after);
        EXPECT_EQ(asked.join(u' '), c.asked);
        EXPECT_EQ(articles(), c.left);
        EXPECT_EQ(m_farm.zeigt(2024, u"SELECT Artikel FROM LAGERJOURNAL"_s).join(u' '), c.left);
    }
}

TEST_F(GridScreen, AsksOrIsForbiddenToDelete)
{
    QString told; // what a handler began before the row went, it must be able to end in any case
    QObject::connect(m_grid, &DataGrid::AfterDelete, [&] { told += u"deleted "_s; });
    QObject::connect(m_grid, &DataGrid::DeleteEnded, [&] { told += u"row "_s; });
    QObject::connect(m_grid, &DataGrid::DeletesEnded, [&] { told += u"all"_s; });
    using Before = std::function<void(Cancel&, bool& prompt)>;
    const Before nothing = [](Cancel&, bool&) {};
    const Before noPrompt = [](Cancel&, bool& prompt) { prompt = false; };
    const Before refusal = [](Cancel& cancel, bool&) { cancel = true; };
    const Before failure = [](Cancel&, bool&) { throw jet::Error(jet::ErrorNumber::Locked, u"Gesperrt."_s); };
    const struct {
        const char* name;
        Before before;
        sys::Answer answer;
        bool allowed;
        int questions;
        QStringView told;
    } cases[] = {
        {"forbidden by Validate", noPrompt, sys::Answer::Yes, false, 0, u"row all"},
        {"cancelled", refusal, sys::Answer::Yes, true, 0, u"row all"},
        {"a guard fails", failure, sys::Answer::Ignore, true, 1, u"row all"},
        {"no", nothing, sys::Answer::No, true, 1, u"row all"},
        {"yes", nothing, sys::Answer::Yes, true, 1, u"deleted row all"},
        {"asked before", noPrompt, sys::Answer::No, true, 0, u"deleted row all"},
    };
    show();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        QObject handlers;
        verdrahte(m_grid, &DataGrid::BeforeDelete, &handlers, c.before);
        verdrahte(&m_data, &DataControl::Validate, &handlers,
                  [&c](DataControl::Action, Cancel& cancel) { cancel = !c.allowed; });
        m_farm.meldungen().beantworteAlle(c.answer);
        told.clear();
        tippe(u"{Num+Del}");
        EXPECT_EQ(told, c.told);
        EXPECT_EQ(messages().size(), c.questions);
    }
    m_grid->setAllowDelete(false);
    tippe(u"{Del}");
    EXPECT_EQ(articles(), u"Hafer Mais Roggen Raps"_s);
}

/// Two rows that belong together go together, though the rows are opened anew after each; the rows selected besides are
/// found again, until a handler ends it.
TEST_F(GridScreen, DeletesThePartnerFromWithinAfterDelete)
{
    QStringList asked;
    verdrahte(m_grid, &DataGrid::BeforeDelete, m_grid, [&](Cancel&, bool& prompt) {
        prompt = false;
        if (m_grid->Tag().isEmpty()) asked.append(current());
    });
    verdrahte(m_grid, &DataGrid::AfterDelete, m_grid, [&] {
        if (!m_grid->Tag().isEmpty()) return;
        m_grid->setTag(u"LÖSCHEN"_s);
        m_data.FindFirst(u"ARTIKEL = 'Mais'"_s);
        if (!m_data.NoMatch()) m_grid->Delete();
        m_grid->setTag({});
        m_data.Refresh();
        if (asked.size() == 3) m_grid->EndDeletes();
    });
    show();
    act(u"{Ctrl+A} +1 {Del}"_s);
    EXPECT_EQ(asked, QStringList({u"Weizen"_s, u"Hafer"_s, u"Roggen"_s})); // Mais went with Weizen
    EXPECT_EQ(articles(), u"Gerste Raps"_s);
}

TEST_F(GridScreen, SortsByTheHeaderThatIsClicked)
{
    const auto marked = [this] {
        QString captions;
        for (int i = 0; i < m_grid->ColumnCount(); ++i)
            if (m_grid->Columns(i).HeadForeColor() == QColor(Sortiermarke)) captions += m_grid->Columns(i).Caption();
        return captions;
    };
    QObject::connect(m_grid, &DataGrid::HeadClick, [this](int column) {
        GridSortieren(m_data, *m_grid, column,
                      column == 2 ? Sortierung{.ausdruck = u"Menge"_s} : Sortierung{.zweitesFeld = u"Datum"_s});
    });
    show();
    const struct {
        int column;
        QStringView order, first;
    } clicks[] = {
        {1, u"ORDER BY [ARTIKEL] ASC, [Datum] ASC", u"GersteArtikel"},
        {1, u"ORDER BY [ARTIKEL] DESC, [Datum] DESC", u"WeizenArtikel"},
        {1, u"ORDER BY [ARTIKEL] ASC, [Datum] ASC", u"GersteArtikel"},
        {2, u"ORDER BY Menge ASC", u"HaferZugang"},
        {2, u"ORDER BY Menge DESC", u"WeizenZugang"},
        {0, u"ORDER BY [Datum] ASC", u"WeizenDatum"},
        {0, u"ORDER BY [Datum] DESC", u"RapsDatum"},
    };
    for (const auto& c : clicks) {
        clickHeader(m_grid->columnViewportPosition(c.column) + 9);
        EXPECT_EQ(m_data.RecordSource().section(u"LAGERJOURNAL"_s, 1).simplified(), c.order);
        EXPECT_EQ(current() + marked(), c.first);
        EXPECT_EQ(article(0), current());
        EXPECT_TRUE(m_grid->hasFocus());
    }
    const QString source = m_data.RecordSource();
    m_data.Edit();
    m_data.Set(u"Kommentar", u"neu"_s);
    m_grid->horizontalHeader()->setStretchLastSection(false);
    m_grid->setColumnWidth(3, 20);
    clickHeader(m_grid->viewport()->width() - 2);
    EXPECT_EQ(m_data.RecordSource(), source) << "beside the columns";
    EXPECT_EQ(m_farm.zeigt(2024, u"SELECT Kommentar FROM LAGERJOURNAL WHERE ID = 6"_s), QStringList(u"neu"_s));

    // An "order" within a name is cut and refused.
    m_data.setRecordSource(u"SELECT *, Menge AS Zugang FROM LAGERJOURNAL WHERE Artikel <> 'Vorderachsöl'"_s);
    m_data.Refresh();
    EXPECT_THROW(GridSortieren(m_data, *m_grid, 1), jet::Error);
    EXPECT_FALSE(m_data.isOpen());
    EXPECT_EQ(articles() + marked(), QString());
    EXPECT_TRUE(m_grid->updatesEnabled() && !QApplication::overrideCursor());
    m_data.setRecordSource(u"SELECT *, Menge AS Zugang FROM LAGERJOURNAL"_s);
    GridVorsortieren(m_data, *m_grid, 1);
    EXPECT_FALSE(m_data.isOpen());
    m_data.Refresh();
    EXPECT_EQ(article(0) + marked(), u"GersteArtikel"_s);
}
