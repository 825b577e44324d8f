#include "platform/controls/Wiring.h"
#include "tests/platform/controls/GridScreen.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Question = QStringLiteral("Soll die markierte Zeile gelöscht werden?");

} // namespace

TEST_F(GridScreen, DeletesTheSelectedRowsOrElseTheCurrentOne)
{
    const struct {
        const char* name;
        std::function<void()> select;
        const char* asked; // the current row at each BeforeDelete
        const char* left;
        const char* current;
    } cases[] = {
        {"the current one", [this] { m_data.MoveTo(1); }, "Gerste", "Weizen Hafer Mais Roggen Raps", "Hafer"},
        {"the last one", [this] { m_data.MoveLast(); }, "Raps", "Weizen Gerste Hafer Mais Roggen", "Roggen"},
        {"selected by mouse",
         [this] {
             click(0);
             click(3, Qt::ControlModifier);
             click(4, Qt::ControlModifier);
         },
         "Weizen Mais Roggen", "Gerste Hafer Raps", "Raps"},
        {"never another than the current one", [this] { m_grid->SelBookmarks().Add(m_data.Recordset().BookmarkAt(2)); },
         "Weizen", "Gerste Hafer Mais Roggen Raps", "Gerste"},
        {"the one taken out of the selection, as it is the current one",
         [this] {
             click(0);
             for (int i = 0; i < 2; ++i)
                 click(2, Qt::ControlModifier);
             EXPECT_EQ(selected(), u"Hafer"_s);
         },
         "Hafer", "Weizen Gerste Mais Roggen Raps", "Mais"},
        {"all", [this] { m_grid->selectAll(); }, "Weizen Gerste Hafer Mais Roggen Raps", "", "-"},
    };
    QStringList asked;
    QObject::connect(m_grid, &DataGrid::BeforeDelete, [&](Cancel&, bool& prompt) {
        asked.append(current());
        prompt = false;
    });
    m_farm.fuehreAus(2024, u"SELECT * INTO Vorher IN '"_s + m_data.DatabaseName() + u"' FROM LAGERJOURNAL"_s);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL"_s);
        m_farm.fuehreAus(2024, u"INSERT INTO LAGERJOURNAL (Datum, Artikel, Menge) SELECT Datum, Artikel, Menge "
                               u"FROM Vorher"_s);
        show();
        c.select();
        asked.clear();
        press(Qt::Key_Delete);
        EXPECT_EQ(asked.join(u' '), QString::fromUtf8(c.asked));
        EXPECT_EQ(current(), QString::fromUtf8(c.current));
        EXPECT_EQ(articles().join(u' '), QString::fromUtf8(c.left));
        EXPECT_EQ(m_farm.zeigt(2024, u"SELECT Artikel FROM LAGERJOURNAL"_s).join(u' '), QString::fromUtf8(c.left));
    }
}

TEST_F(GridScreen, AsksOrIsForbiddenToDelete)
{
    const struct {
        const char* name;
        bool cancel;
        bool prompt;
        sys::Answer answer;
        int questions;
        bool deleted;
        bool forbidden = false;
    } cases[] = {
        {"a handler of Validate forbids it", false, false, sys::Answer::Yes, 0, false, true},
        {"a handler cancels", true, true, sys::Answer::Yes, 0, false},
        {"the user says no", false, true, sys::Answer::No, 1, false},
        {"the user says yes", false, true, sys::Answer::Yes, 1, true},
        {"a handler has asked himself", false, false, sys::Answer::No, 0, true},
    };
    show();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        QObject handlers;
        int after = 0;
        verdrahte(m_grid, &DataGrid::BeforeDelete, &handlers, [&c](Cancel& cancel, bool& prompt) {
            cancel = c.cancel;
            prompt = c.prompt;
        });
        verdrahte(m_grid, &DataGrid::AfterDelete, &handlers, [&after] { ++after; });
        QString ended; // what a handler began before the row went, it must be able to end in any case
        QObject::connect(m_grid, &DataGrid::DeleteEnded, &handlers, [&ended] { ended += u"row "_s; });
        QObject::connect(m_grid, &DataGrid::DeletesEnded, &handlers, [&ended] { ended += u"all"_s; });
        verdrahte(&m_data, &DataControl::Validate, &handlers,
                  [&c](DataControl::Action, Cancel& cancel) { cancel = c.forbidden; });
        Meldungsprotokoll user;
        const sys::MessageScope scope(user);
        user.beantworte(Question, c.answer);
        const qsizetype before = m_data.RecordCount();
        press(Qt::Key_Delete, Qt::KeypadModifier);
        EXPECT_EQ(m_data.RecordCount(), before - (c.deleted ? 1 : 0));
        EXPECT_EQ(after, c.deleted ? 1 : 0);
        EXPECT_EQ(ended, u"row all"_s);
        EXPECT_EQ(user.abgeholt().size(), c.questions);
    }
    m_grid->setAllowDelete(false);
    press(Qt::Key_Delete);
    EXPECT_EQ(m_data.RecordCount(), 4);
}

TEST_F(GridScreen, AGuardThatFailsForbidsTheDelete)
{
    m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID = 2"_s);
    show();
    m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID = 1"_s);
    verdrahte(m_grid, &DataGrid::BeforeDelete, m_grid, [this](Cancel&, bool& prompt) {
        prompt = m_data.Recordset()[u"Buchungsart"].isNull(); // another program has deleted the row
    });
    const QString told = report(3167, u"Datensatz ist gelöscht."_s);
    m_farm.meldungen().beantworte(told, sys::Answer::Ignore);
    press(Qt::Key_Delete);
    EXPECT_EQ(messages(), QStringList(told));
    EXPECT_EQ(m_data.RecordCount(), 5);
}

/// Two rows that belong together go together, though the rows are opened anew after each; the rows selected besides are
/// found again.
TEST_F(GridScreen, DeletesThePartnerFromWithinAfterDelete)
{
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Verfuttert_an = '4' WHERE ID = 1"_s);
    m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Verfuttert_an = '1' WHERE ID = 4"_s);
    QStringList asked;
    verdrahte(m_grid, &DataGrid::BeforeDelete, m_grid, [&](Cancel&, bool& prompt) {
        prompt = false;
        if (m_grid->Tag() == u"LÖSCHEN"_s) return;
        asked.append(current());
        m_grid->setTag(QString::number(m_data.Recordset()[u"ID"].toLong()));
    });
    verdrahte(m_grid, &DataGrid::AfterDelete, m_grid, [&] {
        if (m_grid->Tag() == u"LÖSCHEN"_s) return;
        m_data.FindFirst(u"VERFUTTERT_AN = '"_s + m_grid->Tag() + u"'"_s);
        m_grid->setTag(u"LÖSCHEN"_s);
        if (!m_data.NoMatch()) m_grid->Delete();
        m_grid->setTag({});
        m_data.Refresh();
    });
    show();
    click(0);
    for (const int row : {2, 3, 5})
        click(row, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(asked, QStringList({u"Weizen"_s, u"Hafer"_s, u"Raps"_s})); // Mais went with Weizen
    EXPECT_EQ(articles(), QStringList({u"Gerste"_s, u"Roggen"_s}));
}
