#include "platform/controls/DateCombo.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Wiring.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Bildschirm.h"
#include "tests/support/Print.h"

#include <zablager/DatabaseError.h>

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class EditFieldTest : public FieldScreen {};

} // namespace

TEST_F(EditFieldTest, TakesTheCharacterThatKeyPressPutsInPlace)
{
    auto& field = add<TextBox>();
    verdrahte(&field, &TextBox::KeyPress, &field,
              [](QChar& character) { character = character == u'x' ? QChar() : character.toUpper(); });
    show();
    QTest::keyClicks(&field, u"zxa"_s);
    EXPECT_EQ(field.Text(), u"ZA"_s);
    QInputMethodEvent composed;
    composed.setCommitString(u"é"_s);
    QCoreApplication::sendEvent(&field, &composed);
    EXPECT_EQ(field.Text(), u"ZAÉ"_s);
    field.setProperty("Text", u"ab"_s); // no key
    EXPECT_EQ(field.Text(), u"ab"_s);
}

TEST_F(EditFieldTest, LooksUpAKeyThatWasPressedHere)
{
    auto& field = add<TextBox>();
    auto& other = add<TextBox>();
    const auto lookUps = counted(field, &TextBox::KeyUp);
    show();
    const struct {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int lookUps;
    } cases[] = {
        {"a letter", Qt::Key_Z, Qt::NoModifier, 1},        {"a capital", Qt::Key_Z, Qt::ShiftModifier, 1},
        {"Enter", Qt::Key_Return, Qt::NoModifier, 1},      {"Backspace", Qt::Key_Backspace, Qt::NoModifier, 1},
        {"Shift alone", Qt::Key_Shift, Qt::NoModifier, 0}, {"an arrow", Qt::Key_Left, Qt::NoModifier, 0},
        {"a chord", Qt::Key_V, Qt::ControlModifier, 0},    {"a mnemonic", Qt::Key_N, Qt::AltModifier, 0},
        {"a function key", Qt::Key_F1, Qt::NoModifier, 0},
    };
    for (const auto& c : cases) {
        field.setFocus();
        *lookUps = 0;
        QTest::keyClick(&field, c.key, c.modifiers);
        EXPECT_EQ(*lookUps, c.lookUps) << c.name;
    }
    *lookUps = 0;
    QTest::keyPress(&other, Qt::Key_Z);
    QTest::keyRelease(&field, Qt::Key_Z);
    EXPECT_EQ(*lookUps, 0) << "pressed elsewhere";
    QTest::keyPress(&field, Qt::Key_Z);
    other.setFocus();
    field.setFocus();
    QTest::keyRelease(&field, Qt::Key_Z);
    EXPECT_EQ(*lookUps, 0) << "left in between";
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Z, Qt::NoModifier, u"z"_s, true);
    QTest::keyPress(&field, Qt::Key_Z);
    QCoreApplication::sendEvent(&field, &repeated);
    EXPECT_EQ(*lookUps, 0) << "held";
    QTest::keyRelease(&field, Qt::Key_Z);
    EXPECT_EQ(*lookUps, 1);
}

TEST_F(EditFieldTest, FiresNoHandlerWhenTheProgramSetsTheText)
{
    auto& field = add<TextBox>();
    const auto changes = counted(field, &TextBox::Change);
    field.setText(u"Weizen"_s);
    EXPECT_EQ(*changes, 0);
    field.setProperty("Text", u"Gerste"_s);
    EXPECT_EQ(*changes, 1);
    field.setProperty("Text", u"Gerste"_s);
    EXPECT_EQ(*changes, 1);
    QTest::keyClicks(&field, u"12"_s);
    EXPECT_EQ(*changes, 3);
}

namespace {

/// A field that cannot be left, and where the user may go.
class LeavingTest : public FieldScreen {
protected:
    LeavingTest()
    {
        m_cancel.setProperty("CausesValidation", false);
        m_cancel.setAutoDefault(false);
        QObject::connect(&m_field, &TextBox::Validate, [this](Cancel& cancel) {
            ++m_checks;
            if (m_withMessage) sys::critical(u"Nein"_s);
            cancel = m_refuses;
        });
    }

    TextBox& m_field = add<TextBox>();
    TextBox& m_next = add<TextBox>();
    QPushButton& m_save = add<QPushButton>();
    QPushButton& m_cancel = add<QPushButton>();
    int m_checks = 0;
    bool m_refuses = true;
    bool m_withMessage = false;
};

} // namespace

TEST_F(LeavingTest, IsCheckedWhenTheUserMovesOn)
{
    show();
    const struct {
        const char* name;
        std::function<void()> move;
        bool isChecked;
    } moves[] = {
        {"Tab", [&] { QTest::keyClick(&m_field, Qt::Key_Tab); }, true},
        {"a click into a field", [&] { QTest::mouseClick(&m_next, Qt::LeftButton); }, true},
        {"a click on a button", [&] { QTest::mouseClick(&m_save, Qt::LeftButton); }, true},
        {"a mnemonic of a label", [&] { m_next.setFocus(Qt::ShortcutFocusReason); }, true},
        {"a click on the button that gives up", [&] { QTest::mouseClick(&m_cancel, Qt::LeftButton); }, false},
        {"Shift+Tab to it", [&] { QTest::keyClick(&m_field, Qt::Key_Backtab); }, false},
        {"the program", [&] { m_next.setFocus(); }, false},
        {"being hidden", [&] { m_field.hide(); }, false},
        {"being disabled", [&] { m_field.setEnabled(false); }, false},
    };
    for (const bool refuses : {true, false}) {
        m_refuses = refuses;
        for (const auto& c : moves) {
            SCOPED_TRACE(c.name);
            m_field.show();
            m_field.setEnabled(true);
            m_field.setFocus();
            m_checks = 0;
            const auto left = counted(m_field, &TextBox::LostFocus);
            const auto entered = counted(m_next, &TextBox::GotFocus);
            const auto pressed = counted(m_save, &QPushButton::clicked);
            c.move();
            const bool stays = c.isChecked && refuses;
            EXPECT_EQ(m_checks, c.isChecked ? 1 : 0);
            EXPECT_EQ(m_field.hasFocus(), stays);
            EXPECT_EQ(*left, stays ? 0 : 1);
            EXPECT_EQ(*entered, m_next.hasFocus() ? 1 : 0);
            EXPECT_FALSE(stays && *pressed > 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
}

TEST_F(LeavingTest, StaysBehindAMessageBox)
{
    show();
    QObject::connect(&m_field, &TextBox::Validate, [this] { QMessageBox::critical(&m_window, {}, u"Nein"_s); });
    const auto left = counted(m_field, &TextBox::LostFocus);
    const auto entered = counted(m_next, &TextBox::GotFocus);
    for (const bool refuses : {true, false}) {
        m_refuses = refuses;
        m_field.setFocus();
        imNaechstenFenster([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QTest::keyClick(&m_field, Qt::Key_Tab);
        QApplication::setActiveWindow(&m_window); // as the window manager does when the box has gone
        EXPECT_EQ(m_window.focusWidget(), refuses ? &m_field : &m_next);
        EXPECT_EQ(*left, refuses ? 0 : 1);
        EXPECT_EQ(*entered, refuses ? 0 : 1);
    }
}

TEST_F(LeavingTest, StaysWhenTheCheckItselfFails)
{
    m_refuses = false;
    verdrahte(&m_field, &TextBox::Validate, &m_window,
              [](Cancel&) { throw jet::Error(jet::ErrorNumber::Locked, u"Gesperrt."_s); });
    show();
    m_field.setFocus();
    QTest::keyClick(&m_field, Qt::Key_Tab);
    EXPECT_TRUE(m_field.hasFocus());
    EXPECT_EQ(messages().size(), 1);
}

TEST_F(LeavingTest, OwesACheckForWhatTheUserChanged)
{
    show();
    m_next.setFocus();
    EXPECT_TRUE(owedChecksPass(m_window)) << "nothing was typed";
    m_field.setProperty("Text", u"unbekannt"_s);
    EXPECT_FALSE(owedChecksPass(m_window));
    EXPECT_TRUE(m_field.hasFocus());
    m_refuses = false;
    EXPECT_TRUE(owedChecksPass(m_window));
    m_checks = 0;
    EXPECT_TRUE(owedChecksPass(m_window));
    EXPECT_EQ(m_checks, 0) << "made already";
    m_refuses = true;
    QTest::keyClicks(&m_field, u"x"_s);
    m_field.hide();
    EXPECT_TRUE(owedChecksPass(m_window)) << "hidden";
}

TEST_F(LeavingTest, IsNotLeftForAPopUp)
{
    show();
    m_field.setFocus();
    const auto left = counted(m_field, &TextBox::LostFocus);
    const auto entered = counted(m_field, &TextBox::GotFocus);
    QMenu menu(&m_window);
    menu.addAction(u"Einfügen"_s);
    menu.popup(m_window.mapToGlobal(QPoint()));
    menu.close();
    EXPECT_EQ(m_checks, 0);
    EXPECT_EQ(*left + *entered, 0);
}

TEST_F(FieldScreen, TheMenuOfAFieldIsGerman)
{
    QWidget* const fields[] = {&add<TextBox>(), &add<DateCombo>(), add<MemoBox>().viewport()};
    show();
    for (QWidget* const field : fields) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, field->rect().center(), field->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(field, &event);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu) << field->metaObject()->className();
        EXPECT_TRUE(menu->actions().value(0)->text().startsWith(u"&Rückgängig"_s));
        menu->close();
    }
}
