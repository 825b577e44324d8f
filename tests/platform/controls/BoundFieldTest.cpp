#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataControl.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/TextBox.h"
#include "tests/support/Print.h"
#include "tests/support/Testbetrieb.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The settings of the delivery notes in a year file, bound as their screen binds them.
class BoundFieldTest : public testing::Test {
protected:
    BoundFieldTest()
    {
        m_farm.richteEin(2024);
        m_farm.fuehreAus(2024, u"INSERT INTO Liefereinstellungen (Lieferscheinformular, LieferscheinZeile1, "
                               u"LieferscheinMitPreis) VALUES ('Alt.rpt', 'Hof', False)"_s);
        m_farm.fuehreAus(2024, u"INSERT INTO Liefereinstellungen (LieferscheinZeile1) VALUES ('zweite')"_s);
        m_data.setDatabaseName(m_farm.journaldatei(2024));
        m_data.setRecordSource(u"Liefereinstellungen"_s);
        m_form.bindTo(m_data, u"Lieferscheinformular"_s);
        m_line.bindTo(m_data, u"LieferscheinZeile1"_s);
        m_empty.bindTo(m_data, u"LieferscheinZeile2"_s);
        m_more.bindTo(m_data, u"LieferscheinZusatztext"_s);
        m_withPrice.bindTo(m_data, u"LieferscheinMitPreis"_s);
    }
    QString stored() const
    {
        return m_farm.zeigt(2024, u"SELECT Lieferscheinformular, LieferscheinZeile1, LieferscheinZeile2, "
                                  u"LieferscheinZusatztext, LieferscheinMitPreis FROM Liefereinstellungen"_s)[0];
    }

    Testbetrieb m_farm;
    DataControl m_data;
    ComboBox m_form;
    TextBox m_line, m_empty;
    MemoBox m_more;
    CheckBox m_withPrice;
};

} // namespace

TEST_F(BoundFieldTest, ShowTheCurrentRow)
{
    m_data.setRecordSource(u"SELECT * FROM Liefereinstellungen"_s);
    m_data.Refresh();
    EXPECT_EQ(m_form.Text(), u"Alt.rpt"_s);
    EXPECT_EQ(m_line.Text(), u"Hof"_s);
    EXPECT_EQ(m_empty.Text(), u""_s) << "NULL";
    EXPECT_EQ(m_withPrice.Value(), 0);
    m_data.MoveNext();
    EXPECT_EQ(m_form.Text(), u""_s);
    EXPECT_EQ(m_line.Text(), u"zweite"_s);
}

TEST_F(BoundFieldTest, WriteWhatTheUserChanged)
{
    m_data.setRecordSource(u"SELECT * FROM Liefereinstellungen"_s);
    const struct {
        const char* name;
        std::function<void()> write;
    } ways[] = {
        {"print", [&] { m_data.UpdateRecord(); }},
        {"move", [&] { m_data.MoveNext(); }},
        {"close", [&] { m_data.Close(); }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        m_farm.fuehreAus(2024, u"UPDATE Liefereinstellungen SET Lieferscheinformular = 'Alt.rpt', LieferscheinZeile1 = "
                               u"'Hof', LieferscheinZusatztext = NULL, LieferscheinMitPreis = False WHERE "
                               u"Lieferscheinformular IS NOT NULL"_s);
        m_data.Refresh();
        m_line.setText(u"vom Programm"_s);
        way.write();
        EXPECT_EQ(stored(), u"Alt.rpt | Hof | NULL | NULL | 0"_s);
        m_data.Refresh();
        QTest::keyClick(&m_line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&m_line, Qt::Key_Delete);
        QTest::keyClicks(&m_more, u"Danke"_s);
        m_form.setProperty("Text", u"Neu.rpt"_s);
        QTest::keyClick(&m_withPrice, Qt::Key_Space);
        way.write();
        EXPECT_EQ(stored(), u"Neu.rpt |  | NULL | Danke | -1"_s);
    }
}
