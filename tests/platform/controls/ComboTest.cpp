#include "platform/controls/ComboBox.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Print.h"

#include <QAbstractItemView>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class ComboTest : public FieldScreen {
protected:
    ComboTest()
    {
        for (const auto& kind : {u"Weizen"_s, u"Gerste"_s, u"Winterraps"_s, u"Geflügelfutter"_s})
            m_combo.AddItem(kind);
        show();
    }
    QString typed() const ///< "Wei[zen]": what is selected stands in brackets.
    {
        const QLineEdit& line = *m_combo.lineEdit();
        QString text = line.text();
        if (!line.hasSelectedText()) return text;
        return text.insert(line.selectionEnd(), u']').insert(line.selectionStart(), u'[');
    }

    ComboBox& m_combo = add<ComboBox>();
    TextBox& m_next = add<TextBox>();
    std::shared_ptr<int> m_changes = counted(m_combo, &ComboBox::Change);
    std::shared_ptr<int> m_clicks = counted(m_combo, &ComboBox::Click);
};

} // namespace

TEST_F(ComboTest, KeepsItsTextWhenItIsRefilled)
{
    for (const auto& text : {u""_s, u"Gerste"_s, u"frei"_s}) {
        m_combo.setText(text);
        m_combo.Clear();
        m_combo.AddItem(u"Hafer"_s);
        m_combo.AddItem(u"Gerste"_s);
        EXPECT_EQ(m_combo.Text(), text);
        EXPECT_EQ(m_combo.ListCount(), 2);
    }
    EXPECT_EQ(*m_changes + *m_clicks, 0);
}

TEST_F(ComboTest, KnowsWhetherItsTextIsListed)
{
    const struct {
        QString text;
        bool isListed;
    } cases[] = {{u"gerste"_s, true}, {u"  GERSTE "_s, true}, {u"Gerst"_s, false}, {u""_s, false}};
    for (const auto& c : cases) {
        m_combo.setText(c.text);
        EXPECT_EQ(m_combo.IsItemInList(), c.isListed) << c.text.toStdString();
        EXPECT_EQ(m_combo.Text(), c.text);
    }
}

TEST_F(ComboTest, CompletesWhatIsTyped)
{
    const struct {
        const char* keys; // < is Backspace, ! Delete
        QString free, listOnly;
    } cases[] = {
        {"wi", u"wi[nterraps]"_s, u"Wi[nterraps]"_s},
        {"we<", u"we"_s, u"We[izen]"_s},
        {"we!", u"we"_s, u"We[izen]"_s},
        {"w", u"w"_s, u"W[eizen]"_s}, // or Winterraps: nobody knows
        {"wx", u"wx"_s, u"W[eizen]"_s},
        {"wg", u"wg"_s, u"G[erste]"_s},
        {"gef", u"gef[lügelfutter]"_s, u"Gef[lügelfutter]"_s},
        {"x", u"x"_s, u"[frei]"_s},
    };
    for (const bool listOnly : {false, true}) {
        m_combo.setListOnly(listOnly);
        for (const auto& c : cases) {
            m_combo.setText(u"frei"_s);
            m_combo.lineEdit()->selectAll();
            for (const char key : std::string(c.keys)) {
                if (key == '<' || key == '!')
                    QTest::keyClick(&m_combo, key == '<' ? Qt::Key_Backspace : Qt::Key_Delete);
                else
                    QTest::keyClick(&m_combo, key);
            }
            EXPECT_EQ(typed(), listOnly ? c.listOnly : c.free) << c.keys << listOnly;
        }
    }
}

TEST_F(ComboTest, ClicksOnceForEachChoice)
{
    const struct {
        const char* name;
        std::function<void()> choose;
        QString text;
        int changes, clicks;
    } cases[] = {
        {"arrow", [&] { QTest::keyClick(&m_combo, Qt::Key_Down); }, u"Winterraps"_s, 1, 1},
        {"Enter", [&] { QTest::keyClicks(&m_combo, u"we\r"_s); }, u"Weizen"_s, 2, 1},
        {"leaving", [&] { QTest::keyClicks(&m_combo, u"we\t"_s); }, u"Weizen"_s, 2, 1},
        {"another text", [&] { QTest::keyClicks(&m_combo, u"zz\t"_s); }, u"zz"_s, 2, 1},
        {"the same text", [&] { QTest::keyClicks(&m_combo, u"gers\t"_s); }, u"Gerste"_s, 3, 0},
        {"property", [&] { m_combo.setProperty("Text", u"weizen"_s); }, u"Weizen"_s, 1, 1},
        {"list",
         [&] {
             QTest::keyClick(&m_combo, Qt::Key_Down, Qt::AltModifier);
             EXPECT_TRUE(m_combo.DroppedDown());
             QTest::keyClick(m_combo.view(), Qt::Key_Down);
             QTest::keyClick(m_combo.view(), Qt::Key_Return);
         },
         u"Winterraps"_s, 1, 1},
        {"the same row of the list",
         [&] {
             m_combo.setDroppedDown(true);
             QTest::keyClick(m_combo.view(), Qt::Key_Return);
         },
         u"Gerste"_s, 0, 1},
        {"Esc in the list",
         [&] {
             m_combo.setDroppedDown(true);
             QTest::keyClick(m_combo.view(), Qt::Key_Down);
             QTest::keyClick(m_combo.view(), Qt::Key_Escape);
         },
         u"Gerste"_s, 0, 0},
        {"the program", [&] { m_combo.setText(u"Weizen"_s); }, u"Weizen"_s, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        m_combo.setText(u"Gerste"_s);
        m_combo.setFocus();
        m_combo.lineEdit()->selectAll();
        *m_changes = *m_clicks = 0;
        c.choose();
        m_next.setFocus();
        EXPECT_EQ(m_combo.Text(), c.text);
        EXPECT_EQ(*m_changes, c.changes);
        EXPECT_EQ(*m_clicks, c.clicks);
        EXPECT_FALSE(m_combo.DroppedDown());
    }
}

TEST_F(ComboTest, ShowsAnyTextTheProgramSetsThoughOneCanOnlyChoose)
{
    m_combo.setListOnly(true);
    m_combo.setText(u"H9"_s);
    m_combo.setFocus();
    QTest::keyClicks(&m_combo, u"x\t"_s);
    EXPECT_EQ(m_combo.Text(), u"H9"_s);
    EXPECT_EQ(*m_clicks, 0);
    QTest::mouseClick(m_combo.lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(m_combo.DroppedDown());
}

TEST_F(ComboTest, HandsOutTheOtherCellsOfTheChosenRow)
{
    m_combo.setColumns({u"Kürzel"_s, u"Art der Eintragung"_s}, 1);
    m_combo.AddItem({u"Z"_s, u"Zukauf"_s});
    m_combo.AddItem({u"V"_s, u"Verkauf"_s});
    m_combo.setFocus();
    QTest::keyClick(&m_combo, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(m_combo.view(), Qt::Key_Down);
    QTest::keyClick(m_combo.view(), Qt::Key_Down);
    QTest::keyClick(m_combo.view(), Qt::Key_Return);
    EXPECT_EQ(m_combo.Text(), u"Verkauf"_s);
    EXPECT_EQ(m_combo.Cell(m_combo.ListIndex(), 0), u"V"_s);
}

TEST_F(ComboTest, OpensItsListOnceACheckIsOver)
{
    QObject::connect(&m_combo, &ComboBox::Validate, [&](Cancel& cancel) {
        if (m_combo.IsItemInList()) return;
        m_combo.setDroppedDown(true);
        sys::critical(u"Bitte wählen Sie aus."_s);
        EXPECT_FALSE(m_combo.DroppedDown());
        cancel = true;
    });
    const auto drops = counted(m_combo, &ComboBox::DropDown);
    const auto closings = counted(m_combo, &ComboBox::CloseUp);
    m_combo.setFocus();
    QTest::keyClicks(&m_combo, u"xy\t"_s);
    EXPECT_TRUE(m_combo.hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_combo.DroppedDown(); }));
    EXPECT_EQ(messages().size(), 1);
    QTest::keyClick(m_combo.view(), Qt::Key_Escape);
    EXPECT_EQ(*drops, 1);
    EXPECT_EQ(*closings, 1);
}

TEST_F(ComboTest, IsNotChangedByTheWheelInPassing)
{
    m_combo.setText(u"Gerste"_s);
    m_next.setFocus();
    QWheelEvent turn(QPointF(5, 5), m_combo.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&m_combo, &turn);
    EXPECT_EQ(m_combo.Text(), u"Gerste"_s);
}
