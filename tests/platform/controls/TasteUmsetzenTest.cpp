#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ClickLabel.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/NumberEdit.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Print.h"

#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class KeysTest : public FieldScreen {
protected:
    void press(Qt::Key key)
    {
        QTest::keyClick(QApplication::focusWidget(), key);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(KeysTest, EnterMovesOnAndF2OpensTheList)
{
    auto& date = add<DateCombo>();
    auto& place = add<ComboBox>();
    place.AddItem(u"H1"_s);
    auto& amount = add<NumberEdit>();
    auto& organic = add<CheckBox>();
    auto& yes = add<OptionButton>();
    auto& note = add<MemoBox>();
    auto& save = add<QPushButton>();
    const auto saved = counted(save, &QPushButton::clicked);
    new FieldKeys(m_window);
    show();
    date.setFocus();
    for (QWidget* const next : std::initializer_list<QWidget*>{&place, &amount, &organic, &yes, &note}) {
        press(Qt::Key_Return);
        EXPECT_TRUE(next->hasFocus());
    }
    EXPECT_FALSE(organic.isChecked() || yes.isChecked());
    press(Qt::Key_Return);
    EXPECT_EQ(note.Text(), u"\n"_s);
    press(Qt::Key_Tab);
    ASSERT_TRUE(save.hasFocus());
    press(Qt::Key_Enter);
    EXPECT_EQ(*saved, 1);
    for (ComboField* const combo : std::initializer_list<ComboField*>{&date, &place}) {
        combo->setFocus();
        press(Qt::Key_F2);
        EXPECT_TRUE(combo->DroppedDown());
        press(Qt::Key_Escape);
        EXPECT_FALSE(combo->DroppedDown());
        EXPECT_TRUE(combo->hasFocus());
    }
}

TEST_F(KeysTest, EnterTakesWhatWasTypedAndIsRefusedWithIt)
{
    auto& date = add<DateCombo>();
    auto& amount = add<NumberEdit>();
    auto& note = add<TextBox>();
    date.setMaxDate(QDate(2024, 12, 31));
    new FieldKeys(m_window);
    show();
    date.setFocus();
    QTest::keyClicks(&date, u"1.3.25"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(date.hasFocus());
    EXPECT_EQ(messages().size(), 1);
    date.setText({});
    QTest::keyClicks(&date, u"1.3.24"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(date.Text(), u"01.03.2024"_s);
    ASSERT_TRUE(amount.hasFocus());
    QTest::keyClicks(&amount, u"2,5"_s);
    press(Qt::Key_Enter);
    EXPECT_EQ(amount.Text(), u"2,50"_s);
    EXPECT_TRUE(note.hasFocus());
}

TEST_F(KeysTest, EnterPressesNoButtonFromAField)
{
    QDialog dialog;
    QVBoxLayout layout(&dialog);
    TextBox field;
    TextBox last;
    QPushButton button;
    for (QWidget* const widget : std::initializer_list<QWidget*>{&field, &last, &button})
        layout.addWidget(widget);
    const auto pressed = counted(button, &QPushButton::clicked);
    new FieldKeys(dialog);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    field.setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(last.hasFocus());
    EXPECT_EQ(*pressed, 0);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(KeysTest, ButtonsTellOfTheUsersChoices)
{
    auto& box = add<CheckBox>();
    auto& yes = add<OptionButton>();
    auto& no = add<OptionButton>();
    const auto ticks = counted(box, &CheckBox::Click);
    const auto yeses = counted(yes, &OptionButton::Click);
    const auto noes = counted(no, &OptionButton::Click);
    show();
    box.setValue(2);
    no.setValue(true);
    EXPECT_EQ(box.property("Value"), QVariant(2));
    EXPECT_EQ(*ticks + *yeses + *noes, 0);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(box.Value(), 1);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(box.Value(), 0);
    box.setProperty("Value", 1);
    box.setProperty("Value", 1);
    EXPECT_EQ(*ticks, 3);
    QTest::mouseClick(&yes, Qt::LeftButton);
    no.setProperty("Value", true);
    EXPECT_FALSE(yes.Value());
    EXPECT_EQ(*yeses, 1);
    EXPECT_EQ(*noes, 1);
}

TEST_F(KeysTest, AssistiveToolsFindNamesAndValues)
{
    auto& place = add<ComboBox>();
    auto& date = add<DateCombo>();
    auto& amount = add<NumberEdit>();
    auto& article = add<ComboBox>();
    QLabel placeLabel(u"&Lagerort:"_s, &m_window);
    placeLabel.setBuddy(&place);
    QLabel dateLabel(u"Datum:"_s, &m_window);
    dateLabel.setBuddy(&date);
    amount.setAccessibleName(u"Menge"_s);
    auto& articleLabel = add<ClickLabel>();
    articleLabel.setText(u"Artikel:"_s);
    articleLabel.setBuddy(article);
    const auto clicks = counted(articleLabel, &ClickLabel::Click);
    show();
    place.setText(u"H1"_s);
    date.setDate(QDate(2024, 3, 1));
    amount.setValue(-1250.5);
    article.setListOnly(true);
    article.setText(u"Weizen"_s);
    const struct {
        QWidget* field;
        QString name, value;
    } cases[] = {
        {&place, u"Lagerort:"_s, u"H1"_s},
        {&date, u"Datum:"_s, u"01.03.2024"_s},
        {&amount, u"Menge"_s, u"-1.250,50"_s},
        {&article, u"Artikel"_s, u"Weizen"_s},
    };
    for (const auto& c : cases) {
        const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(c.field);
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->text(QAccessible::Name), c.name);
        EXPECT_EQ(seen->text(QAccessible::Value), c.value);
    }
    QAccessibleInterface* const label = QAccessible::queryAccessibleInterface(&articleLabel);
    EXPECT_EQ(label->text(QAccessible::Name), u"Artikel:"_s);
    label->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return *clicks == 1; }));
    article.setFocus();
    QTest::keyClick(&article, Qt::Key_F5);
    QTest::mouseClick(&articleLabel, Qt::LeftButton);
    EXPECT_EQ(*clicks, 3);
    EXPECT_TRUE(article.hasFocus());
}
