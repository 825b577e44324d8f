#include "platform/controls/DateCombo.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/controls/FieldScreen.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

TEST_F(FieldScreen, AFieldTellsOfItsKeysAndHasAGermanMenu)
{
    auto& field = add<TextBox>();
    auto& other = add<TextBox>();
    QObject::connect(&field, &TextBox::KeyPress, [](QChar& c) { c = c == u'x' ? QChar() : c.toUpper(); });
    note(field, &TextBox::Change, "Change");
    note(field, &TextBox::KeyUp, "KeyUp");
    QWidget* const fields[] = {&field, &add<DateCombo>(), add<MemoBox>().viewport()};
    open();
    QApplication::clipboard()->clear();
    expectTyped(field, {{u"", u"zxa", u"ZA", u"Change KeyUp KeyUp Change KeyUp"},
                        {u"", u"{Shift+Z}", u"Z", u"Change KeyUp"},
                        {u"", u"{Return}{Backspace}{Del}", u"", u"KeyUp KeyUp KeyUp"},
                        {u"", u"{Left}{F1}{Ctrl+V}", u"", u""}});
    QKeyEvent altGr(QEvent::KeyPress, Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, u"@"_s);
    QKeyEvent held(QEvent::KeyRelease, Qt::Key_Q, Qt::NoModifier, u"@"_s, true);
    QCoreApplication::sendEvent(&field, &altGr);
    QCoreApplication::sendEvent(&field, &held);
    EXPECT_EQ(field.Text() + told(), u"@Change"_s);
    other.setFocus();
    QTest::keyRelease(&field, Qt::Key_Q); // as of a key that was pressed in a window that has closed
    field.setText(u"ABe"_s);
    EXPECT_EQ(told(), QString());
    QInputMethodEvent composed;
    composed.setCommitString(u"é"_s, -1, 1);
    QCoreApplication::sendEvent(&field, &composed);
    EXPECT_EQ(field.Text(), u"ABÉ"_s);
    EXPECT_TRUE(told().endsWith(u"Change KeyUp"_s));
    for (int i = 0; i < 2; ++i)
        field.setProperty("Text", u"ab"_s); // no key
    EXPECT_EQ(field.Text() + told(), u"abChange"_s);

    for (QWidget* const clicked : fields) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {}, clicked->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(clicked, &event);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu) << clicked->metaObject()->className();
        EXPECT_TRUE(menu->actions().value(0)->text().startsWith(u"&Rückgängig"_s));
        menu->close();
    }
}

TEST_F(FieldScreen, AFieldIsCheckedWhenTheUserMovesOn)
{
    auto& field = add<TextBox>();
    auto& next = add<TextBox>();
    auto& save = add<QPushButton>();
    auto& cancel = add<QPushButton>();
    cancel.setProperty("CausesValidation", false);
    bool refuses = true;
    bool asks = false;
    QObject::connect(&field, &TextBox::Validate, [&](Cancel& cancelled) {
        tell("checked");
        if (asks) QMessageBox::critical(&m_window, {}, u"Nein"_s);
        cancelled = refuses;
    });
    note(field, &TextBox::LostFocus, "left");
    note(next, &TextBox::GotFocus, "next");
    note(save, &QPushButton::clicked, "saved");
    open();
    QMenu menu(&m_window);
    menu.addAction(u"Einfügen"_s);
    const struct {
        const char* name;
        std::function<void()> move;
        QStringView refused, passed;
    } moves[] = {
        {"Tab", [] { tippe(u"{Tab}"); }, u"checked", u"checked left next"},
        {"click", [&] { QTest::mouseClick(&next, Qt::LeftButton); }, u"checked", u"checked left next"},
        {"button", [&] { QTest::mouseClick(&save, Qt::LeftButton); }, u"checked", u"checked left saved"},
        {"mnemonic", [&] { next.setFocus(Qt::ShortcutFocusReason); }, u"checked", u"checked left next"},
        {"giving up", [&] { QTest::mouseClick(&cancel, Qt::LeftButton); }, u"left", u"left"},
        {"program", [&] { next.setFocus(); }, u"left next", u"left next"},
        {"hidden", [&] { field.hide(); }, u"left next", u"left next"},
        {"disabled", [&] { field.setEnabled(false); }, u"left next", u"left next"},
        {"menu", [&] { menu.popup(m_window.mapToGlobal(QPoint())), menu.close(); }, u"", u""},
    };
    for (const bool refused : {true, false}) {
        refuses = refused;
        for (const auto& c : moves) {
            SCOPED_TRACE(c.name);
            field.show();
            field.setEnabled(true);
            field.setFocus();
            told();
            c.move();
            const QString heard = told();
            EXPECT_EQ(heard, refused ? c.refused : c.passed);
            EXPECT_EQ(field.hasFocus(), !heard.contains(u"left"_s));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        asks = true;
        field.setFocus();
        told();
        imNaechstenFenster([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        tippe(u"{Tab}");
        asks = false;
        QApplication::setActiveWindow(&m_window); // as the window manager does when the box has gone
        EXPECT_EQ(told(), refused ? u"checked"_s : u"checked left next"_s) << "behind a message box";
        EXPECT_EQ(m_window.focusWidget(), refused ? &field : &next);
    }
    // A check that is owed for what the user changed.
    refuses = true;
    field.setText(u"vom Programm"_s);
    EXPECT_TRUE(owedChecksPass(m_window));
    field.setProperty("Text", u"unbekannt"_s);
    EXPECT_FALSE(owedChecksPass(m_window));
    EXPECT_EQ(marked(field) + QString::number(field.hasFocus()), u"[unbekannt]1"_s);
    refuses = false;
    EXPECT_TRUE(owedChecksPass(m_window));
    EXPECT_TRUE(owedChecksPass(m_window)); // made already
    EXPECT_EQ(told(), u"checked checked"_s);
    refuses = true;
    tippe(u"x");
    field.hide();
    EXPECT_TRUE(owedChecksPass(m_window)) << "hidden";
}
