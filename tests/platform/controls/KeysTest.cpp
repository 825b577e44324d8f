#include "platform/controls/CheckBox.h"
#include "platform/controls/ClickLabel.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/NumberEdit.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/TasteUmsetzen.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/controls/FieldScreen.h"

#include <QAccessible>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

TEST_F(FieldScreen, KeysLeadThroughAScreenAndButtonsTellOfThem)
{
    add<DateCombo>("date").setMaxDate(QDate(2024, 12, 31));
    add<TextBox>("locked").setLocked(true);
    auto& place = add<ComboBox>("place");
    place.AddItem(u"H1"_s);
    place.setText(u"H1"_s);
    auto& amount = add<NumberEdit>("amount");
    auto& box = add<CheckBox>("box");
    auto& yes = add<OptionButton>("yes");
    auto& no = add<OptionButton>("no");
    auto& memo = add<MemoBox>("memo");
    add<TextBox>("list").setProperty("KeepsEnter", true);
    auto& save = add<QPushButton>("save");
    for (const auto& [combo, word] :
         {std::pair{m_window.findChild<ComboField*>(u"date"_s), "days"}, {&place, "places"}})
        note(*combo, &ComboField::DropDown, word);
    note(box, &CheckBox::Click, "box");
    note(yes, &OptionButton::Click, "yes");
    note(no, &OptionButton::Click, "no");
    note(save, &QPushButton::clicked, "saved");
    new FieldKeys(m_window);
    open();
    box.setValue(2);
    no.setValue(true);
    const struct {
        QStringView from, keys, to, told;
    } rows[] = {
        {u"date", u"1.3.25{Return}", u"date", u"!"},
        {u"date", u"{Ctrl+Return}", u"date", u""},
        {u"date", u"{Backspace}4{Enter}", u"place", u""},
        {u"place", u"{Return}2,5{Enter}{Return}", u"yes", u""},
        {u"box", u"{Space}", u"box", u"box"},
        {u"no", u"{Up}{Return}", u"memo", u"yes"},
        {u"memo", u"{Return}", u"memo", u""},
        {u"list", u"{Return}", u"list", u""},
        {u"save", u"{Return}{Num+Enter}", u"save", u"saved saved"},
        {u"date", u"{F2}{Esc}", u"date", u"days"},
        {u"place", u"{F2}{Esc}", u"place", u"places"},
        {u"amount", u"{F2}", u"amount", u""},
    };
    for (const auto& row : rows) {
        m_window.findChild<QWidget*>(row.from.toString())->setFocus();
        tippe(row.keys);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), row.to) << row.keys.toUtf8().constData();
        EXPECT_EQ(told(), row.told);
    }
    EXPECT_EQ(amount.Text() + memo.toPlainText() + box.property("Value").toString(), u"2,50\n1"_s);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    for (QWidget* const field : std::initializer_list<QWidget*>{&save, &amount}) {
        field->setFocus();
        QCoreApplication::sendEvent(field, &held);
        QCoreApplication::processEvents();
        EXPECT_TRUE(field->hasFocus() && told().isEmpty()) << "a key that is held counts once";
    }
    place.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(marked(place), u"[H1]"_s);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(box.Value(), 0);
    for (int i = 0; i < 2; ++i)
        box.setProperty("Value", 1);
    no.setProperty("Value", true);
    EXPECT_EQ(told(), u"box box no"_s);
    EXPECT_FALSE(yes.Value());
}

TEST_F(FieldScreen, AssistiveToolsFindNamesAndValues)
{
    auto& place = add<ComboBox>();
    place.AddItem(u"H1"_s);
    QLabel placeLabel(u"&Lagerort:"_s, &m_window);
    placeLabel.setBuddy(&place);
    auto& article = add<ComboBox>();
    auto& articleLabel = add<ClickLabel>();
    articleLabel.setText(u"Ar&tikel:"_s);
    articleLabel.setBuddy(article);
    note(articleLabel, &ClickLabel::Click, "label");
    note(place, &ComboBox::Change, "place");
    open();
    article.setListOnly(true);
    article.setText(u"Weizen"_s);
    const auto seen = [](QWidget& field, QAccessible::Text part) {
        return QAccessible::queryAccessibleInterface(&field)->text(part);
    };
    QAccessibleInterface* const combo = QAccessible::queryAccessibleInterface(&place);
    combo->setText(QAccessible::Value, u"H2"_s);
    EXPECT_EQ(seen(place, QAccessible::Name) + seen(place, QAccessible::Value), u"Lagerort:H2"_s);
    EXPECT_EQ(seen(article, QAccessible::Name) + seen(article, QAccessible::Value), u"ArtikelWeizen"_s);
    for (const bool opened : {true, false}) {
        combo->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        EXPECT_EQ(bool(combo->state().expanded), opened);
    }
    QApplication::setActiveWindow(&m_window); // this platform leaves none active after a list
    article.setFocus();
    tippe(u"{F5}");
    QTest::mouseClick(&articleLabel, Qt::LeftButton);
    EXPECT_EQ(told(), u"place label label"_s);
}

// Two shortcuts of one key make neither work, a field keeps its editing keys before any shortcut sees them,
// and Ctrl+Alt is AltGr to many keyboards.
TEST(KeyTable, GivesEachKeyOnceAndNoneThatTypesOrEdits)
{
    QSet<QKeySequence> taken;
    for (const char letter : "ACDEKUVXYZ") // of text fields, on one desktop or another
        taken.insert(QKeySequence(u"Ctrl+"_s + QLatin1Char(letter)));
    for (const Tastenzeile& line : tastentabelle()) {
        for (const QKeySequence& key : line.tasten) {
            const auto modifiers = key[0].keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier);
            const bool ofLists = line.gilt == Geltung::Journal;
            EXPECT_TRUE(ofLists || !taken.contains(key)) << tastenname(key).toStdString();
            EXPECT_TRUE(modifiers ? modifiers != (Qt::ControlModifier | Qt::AltModifier)
                                  : key[0].key() >= Qt::Key_Escape);
            taken.insert(key);
        }
    }
    EXPECT_EQ(tastenname(Taste::Beenden), u"Strg+Umschalt+Eingabe"_s);
}

TEST(KeyTable, StandsInTheHandbook)
{
    QStringList lines;
    for (const Tastenzeile& line : tastentabelle()) {
        QStringList names;
        for (const QKeySequence& key : line.tasten)
            names.append(u"kbd:["_s + tastenname(key) + u']');
        lines.append(u'|' + names.join(u", "_s) + u"\n|"_s + line.wirkung);
    }
    QFile page(QStringLiteral(HANDBOOK) + u"/tasten.adoc"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    QStringList told;
    static const QRegularExpression row(u"^\\|kbd:.*\n\\|.*$"_s, QRegularExpression::MultilineOption);
    for (const auto& found : row.globalMatch(QString::fromUtf8(page.readAll())))
        told.append(found.captured());
    lines.sort();
    told.sort();
    EXPECT_EQ(told, lines);
}
