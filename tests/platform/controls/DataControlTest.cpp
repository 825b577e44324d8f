#include "platform/controls/DataControl.h"
#include "platform/controls/BoundField.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class BoundBox : public QLineEdit, public BoundField {
public:
    BoundBox(DataControl& source, const QString& field) { bindTo(source, field); }

private:
    void showValue(const jet::Value& value) override
    {
        setText(value.toText());
        setModified(false);
    }
    std::optional<jet::Value> changedValue() const override
    {
        if (!isModified()) return {};
        return jet::Value(text());
    }
};

class DataControlTest : public testing::Test {
protected:
    DataControlTest()
    {
        m_farm.bucht(2024, "01.02. | H1 | Weizen | 100 | Ernte\n"
                           "03.04. | H2 | Gerste | 50 | Zukauf\n"
                           "05.06. | H1 | Hafer | -20 | Verkauf");
        m_data.setDatabaseName(m_farm.journaldatei(2024));
        m_data.setRecordSource(u"SELECT * FROM LAGERJOURNAL ORDER BY Datum"_s);
        QObject::connect(&m_data, &DataControl::Reposition, [this] {
            const bool hasRow = m_data.AbsolutePosition() >= 0;
            m_visited.append(hasRow ? m_data.Recordset()[u"Artikel"].toText() : u"-"_s);
        });
    }

    QStringList visited() { return std::exchange(m_visited, {}); }
    QString stored(int id) const
    {
        return m_farm.zeigt(2024, u"SELECT Kommentar FROM LAGERJOURNAL WHERE ID = "_s + QString::number(id)).value(0);
    }
    static int refusal(const std::function<void()>& call)
    {
        try {
            call();
        } catch (const jet::Error& error) {
            return int(error.number());
        }
        return 0;
    }

    Testbetrieb m_farm;
    DataControl m_data;
    QStringList m_visited;
};

} // namespace

TEST_F(DataControlTest, FiresRepositionOnceForEachRowThatBecomesCurrent)
{
    const struct {
        const char* name;
        std::function<void(DataControl&)> step;
        QStringList visited;
    } steps[] = {
        {"opening", [](auto& data) { data.Refresh(); }, {u"Weizen"_s}},
        {"next", [](auto& data) { data.MoveNext(); }, {u"Gerste"_s}},
        {"last", [](auto& data) { data.MoveLast(); }, {u"Hafer"_s}},
        {"behind the last", [](auto& data) { data.MoveNext(); }, {u"-"_s}},
        {"back", [](auto& data) { data.MovePrevious(); }, {u"Hafer"_s}},
        {"a place", [](auto& data) { data.MoveTo(1); }, {u"Gerste"_s}},
        {"a find with a match", [](auto& data) { data.FindFirst(u"Artikel = 'hafer'"_s); }, {u"Hafer"_s}},
        {"a find without", [](auto& data) { data.FindFirst(u"Artikel = 'Mais'"_s); }, {}},
        {"a bookmark", [](auto& data) { data.setBookmark(data.Recordset().BookmarkAt(0)); }, {u"Weizen"_s}},
        {"a new row",
         [](auto& data) {
             data.AddNew();
             data.Set(u"Artikel", u"Neu"_s);
             data.Update();
         },
         {}},
        {"a delete and a move",
         [](auto& data) {
             data.Delete();
             data.MoveNext();
         },
         {u"Gerste"_s}},
        {"no rows",
         [](auto& data) {
             data.setRecordSource(u"SELECT * FROM LAGERJOURNAL WHERE ID < 0"_s);
             data.Refresh();
         },
         {u"-"_s}},
    };
    for (const auto& step : steps) {
        step.step(m_data);
        EXPECT_EQ(visited(), step.visited) << step.name;
    }
    EXPECT_EQ(refusal([this] { m_data.MoveLast(); }), 3021);
    EXPECT_EQ(visited(), QStringList());
}

TEST_F(DataControlTest, IsClosedAfterARefreshThatFailed)
{
    m_data.Refresh();
    BoundBox box(m_data, u"Artikel"_s);
    EXPECT_EQ(box.text(), u"Weizen"_s);
    visited();
    const QString good = m_data.RecordSource();
    m_data.setRecordSource(u"SELECT * FROM LAGERJOURNAL WHERE"_s);
    EXPECT_EQ(m_data.RecordCount(), 3); // nothing yet
    EXPECT_NE(refusal([this] { m_data.Refresh(); }), 0);
    EXPECT_FALSE(m_data.isOpen());
    EXPECT_EQ(m_data.RecordCount(), 0);
    EXPECT_EQ(box.text(), QString());
    EXPECT_EQ(visited(), QStringList(u"-"_s)); // captions and buttons follow
    EXPECT_EQ(refusal([this] { m_data.MoveFirst(); }), 3420);
    m_data.setRecordSource(good);
    m_data.Refresh();
    EXPECT_EQ(box.text(), u"Weizen"_s);
}

TEST_F(DataControlTest, SavesWhatTheUserTypedWhenTheRowIsLeft)
{
    const struct {
        const char* name;
        std::function<void(DataControl&)> step;
        const char* stored;
    } ways[] = {
        {"a find without a match", [](auto& data) { data.FindFirst(u"ID = 77"_s); }, "getippt"},
        {"UpdateControls and a move",
         [](auto& data) {
             data.UpdateControls();
             data.MoveNext();
         },
         "NULL"},
        {"Refresh", [](auto& data) { data.Refresh(); }, "NULL"},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        m_farm.fuehreAus(2024, u"UPDATE LAGERJOURNAL SET Kommentar = NULL"_s);
        m_data.Refresh();
        BoundBox box(m_data, u"Kommentar"_s);
        QTest::keyClicks(&box, u"getippt"_s);
        way.step(m_data);
        EXPECT_EQ(stored(1), QString::fromUtf8(way.stored));
        EXPECT_FALSE(box.isModified());
    }
}

TEST_F(DataControlTest, LetsAHandlerKeepTheUserOnHisRow)
{
    using Action = DataControl::Action;
    m_data.Refresh();
    BoundBox box(m_data, u"Kommentar"_s);
    std::vector<Action> asked;
    bool pending = false;
    bool forbid = true;
    QObject::connect(&m_data, &DataControl::Validate, [&](Action action, Cancel& cancel, bool& save) {
        asked.push_back(action);
        pending = save;
        if (forbid)
            cancel = true;
        else
            save = false;
    });
    QTest::keyClicks(&box, u"getippt"_s);
    m_data.MoveLast();
    m_data.Close();
    m_data.Delete();
    EXPECT_EQ(asked, (std::vector{Action::MoveLast, Action::Close, Action::Delete}));
    EXPECT_TRUE(m_data.isOpen());
    EXPECT_EQ(m_data.RecordCount(), 3);
    EXPECT_EQ(m_data.AbsolutePosition(), 0);
    EXPECT_EQ(box.text(), u"getippt"_s);
    forbid = false;
    m_data.MoveNext();
    EXPECT_TRUE(pending);
    m_data.MoveNext();
    EXPECT_FALSE(pending);
    EXPECT_EQ(stored(1), u"NULL"_s);
}

TEST_F(DataControlTest, ShowsNothingOfARowThatIsGone)
{
    m_data.Refresh();
    BoundBox box(m_data, u"Artikel"_s);
    m_farm.fuehreAus(2024, u"DELETE FROM LAGERJOURNAL WHERE ID = 2"_s);
    m_data.blockSignals(true);
    m_data.MoveNext();
    EXPECT_EQ(box.text(), QString());
    EXPECT_EQ(m_data.AbsolutePosition(), 1);
    m_data.MoveNext();
    EXPECT_EQ(box.text(), u"Hafer"_s);
}
