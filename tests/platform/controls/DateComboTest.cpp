#include "platform/controls/DateCombo.h"
#include "platform/controls/TextBox.h"
#include "platform/system/Clock.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Print.h"

#include <QCalendarWidget>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class DateComboTest : public FieldScreen {
protected:
    DateComboTest()
    {
        sys::stelleUhr(QDate(2026, 11, 24));
        show();
    }
    ~DateComboTest() override { sys::stelleUhr({}); }
    void type(const QString& keys)
    {
        m_date.setFocus();
        m_date.lineEdit()->selectAll();
        QTest::keyClicks(&m_date, keys);
    }

    DateCombo& m_date = add<DateCombo>();
    TextBox& m_next = add<TextBox>();
    std::shared_ptr<int> m_changes = counted(m_date, &DateCombo::Change);
};

} // namespace

TEST_F(DateComboTest, CompletesWhatIsTypedOnLeaving)
{
    const struct {
        QString keys, text;
        QDate date;
    } cases[] = {
        {u"1.3.24"_s, u"01.03.2024"_s, QDate(2024, 3, 1)},
        {u"01.03.2024"_s, u"01.03.2024"_s, QDate(2024, 3, 1)},
        {u"1.3.29"_s, u"01.03.2029"_s, QDate(2029, 3, 1)},
        {u"1.3.30"_s, u"01.03.1930"_s, QDate(1930, 3, 1)},
        {u"1,3,24"_s, u"01.03.2024"_s, QDate(2024, 3, 1)},
        {u"31.12."_s, u"31.12.2026"_s, QDate(2026, 12, 31)},
        {u"5.6"_s, u"05.06.2026"_s, QDate(2026, 6, 5)},
        {u"31.02.2024"_s, u"31.02.2024"_s, QDate()},
        {u"12.31.2024"_s, u"12.31.2024"_s, QDate()},
        {u"1.3.24 12"_s, u"1.3.24 12"_s, QDate()},
        {u"abc"_s, u"abc"_s, QDate()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keys.toStdString());
        m_date.setText(u""_s);
        DateCombo fresh; // no date stood there before
        fresh.setProperty("Text", c.keys.contains(u',') ? u"1.3.24"_s : c.keys);
        EXPECT_EQ(fresh.Text(), c.text);
        type(c.keys);
        EXPECT_EQ(m_date.Text(), QString(c.keys).replace(u',', u'.')) << "as typed";
        *m_changes = 0;
        QTest::keyClick(&m_date, Qt::Key_Tab);
        EXPECT_FALSE(m_date.hasFocus());
        EXPECT_EQ(m_date.property("Date").toDate().isValid(), c.date.isValid());
        EXPECT_EQ(*m_changes, 1);
    }
    EXPECT_EQ(messages(), QStringList());
}

TEST_F(DateComboTest, TakesTheMissingYearFromWhereItIsUsed)
{
    m_date.setDate(QDate(2024, 1, 1));
    type(u"1.3\r"_s);
    EXPECT_EQ(m_date.Date(), QDate(2024, 3, 1)) << "the year that stood there";
    m_date.setMinDate(QDate(2023, 1, 1));
    type(u"1.3\r"_s);
    EXPECT_EQ(m_date.Date(), QDate(2023, 3, 1)) << "the open year";
}

TEST_F(DateComboTest, TellsOfADateOnceItIsTaken)
{
    const struct {
        const char* name;
        std::function<void()> take;
        int changes;
    } cases[] = {
        {"typing", [&] { type(u"1.2.24"_s); }, 0},
        {"Enter", [&] { type(u"1.3.24\r"_s); }, 1},
        {"leaving", [&] { type(u"1.4.24\t"_s); }, 1},
        {"the same day", [&] { type(u"01.01.24\t"_s); }, 0},
        {"property", [&] { m_date.setProperty("Date", QDate(2024, 5, 1)); }, 1},
        {"text property", [&] { m_date.setProperty("Text", u"1.6.24"_s); }, 1},
        {"emptied", [&] { m_date.setProperty("Date", QDate()); }, 1},
        {"program", [&] { m_date.setDate(QDate(2024, 6, 1)); }, 0},
        {"arrow", [&] { QTest::keyClick(&m_date, Qt::Key_Up); }, 0},
        {"calendar",
         [&] {
             QTest::keyClick(&m_date, Qt::Key_Down, Qt::AltModifier);
             EXPECT_TRUE(m_date.DroppedDown());
             auto& days = *m_date.findChild<QCalendarWidget*>();
             QTest::keyClick(days.focusProxy() ? days.focusProxy() : &days, Qt::Key_Right);
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
             EXPECT_EQ(m_date.Date(), QDate(2024, 1, 2));
         },
         1},
        {"Esc in the calendar",
         [&] {
             m_date.setDroppedDown(true);
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
         },
         0},
    };
    for (const auto& c : cases) {
        m_date.setDate(QDate(2024, 1, 1));
        m_date.setFocus();
        *m_changes = 0;
        c.take();
        EXPECT_EQ(*m_changes, c.changes) << c.name;
        EXPECT_FALSE(m_date.DroppedDown()) << c.name;
    }
}

TEST_F(DateComboTest, IsNotLeftOutsideItsRange)
{
    m_date.setMinDate(QDate(2024, 1, 1));
    m_date.setMaxDate(QDate(2024, 12, 31));
    type(u"31.12.23\t"_s);
    EXPECT_TRUE(m_date.hasFocus());
    EXPECT_EQ(m_date.Text(), u"31.12.2023"_s);
    EXPECT_EQ(messages(),
              QStringList(u"Das Datum 31.12.2023 ist zu früh. Das erste mögliche Datum ist der 01.01.2024."_s));
    type(u"1.1.25\t"_s);
    EXPECT_TRUE(m_date.hasFocus());
    EXPECT_EQ(messages().size(), 1);
    type(u"31.12.24\t"_s);
    EXPECT_FALSE(m_date.hasFocus());
    m_date.setDate(QDate(2022, 5, 5)); // a stored row's
    EXPECT_EQ(m_date.Date(), QDate(2022, 5, 5));
    EXPECT_EQ(messages(), QStringList());
    m_date.setProperty("Date", QDate(2022, 5, 6));
    EXPECT_FALSE(owedChecksPass(m_window));
    EXPECT_EQ(messages().size(), 1);
}

TEST_F(DateComboTest, GoesDayByDayWithinItsRange)
{
    m_date.setMaxDate(QDate(2024, 3, 1));
    m_date.setDate(QDate(2024, 2, 28));
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&m_date, key);
    EXPECT_EQ(m_date.Text(), u"29.02.2024"_s);
    m_date.setText(u"abc"_s);
    m_date.setMaxDate({});
    QTest::keyClick(&m_date, Qt::Key_Down);
    EXPECT_EQ(m_date.Date(), QDate(2026, 11, 24)) << "begins with today";
}
