#include "platform/controls/DateCombo.h"
#include "platform/controls/MemoBox.h"
#include "platform/controls/NumberEdit.h"
#include "platform/controls/TextBox.h"
#include "platform/system/Clock.h"
#include "tests/platform/controls/FieldScreen.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>

#include <cmath>
#include <limits>

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

TEST_F(FieldScreen, ADateFieldTakesWhatIsTypedOrPicked)
{
    sys::stelleUhr(QDate(2026, 11, 24));
    const auto clock = qScopeGuard([] { sys::stelleUhr({}); });
    auto& date = add<DateCombo>();
    add<TextBox>();
    note(date, &DateCombo::Change, "Change");
    note(date, &DateCombo::LostFocus, "left");
    note(date, &DateCombo::DropDown, "open");
    note(date, &DateCombo::CloseUp, "shut");
    open();
    tippe(u"{Alt+Down}{Esc}"); // makes the calendar
    expectTyped(date,
                {{u"", u"31.12.{Tab}", u"31.12.2026", u"Change left"}, // first: no date stood there before
                 {u"", u"1.3.24", u"1.3.24", u""},
                 {u"", u"1.3.24{Tab}", u"01.03.2024", u"Change left"},
                 {u"", u"1.3.29{Return}", u"01.03.2029", u"Change"},
                 {u"", u"1,3,30{Tab}", u"01.03.1930", u"Change left"},
                 {u"", u"31.02.2024{Tab}", u"31.02.2024", u"Change left"},
                 {u"", u"12.31.2024{Tab}", u"12.31.2024", u"Change left"},
                 {u"", u"1.3.24 12{Tab}", u"1.3.24 12", u"Change left"},
                 {u"1.1.24", u"abc{Tab}", u"abc", u"Change left"},
                 {u"1.1.24", u"5.6{Tab}", u"05.06.2024", u"Change left"},
                 {u"1.1.24", u"1.1.24{Tab}", u"01.01.2024", u"left"},
                 {u"1.1.24", u"{Del}{Tab}", u"", u"Change left"},
                 {u"", u"abc{Down}", u"[24.11.2026]", u""},
                 {u"28.2.24", u"{Up}{Up}{Tab}", u"01.03.2024", u"Change left"},
                 {u"", u"{Alt+Down}{Return}", u"[24.11.2026]", u"open shut Change"},
                 {u"1.1.24", u"{Alt+Down}{Right}{Return}", u"[02.01.2024]", u"open shut Change"},
                 {u"1.1.24", u"{Alt+Down}{Right}{Esc}", u"01.01.2024", u"open shut"}});
    date.setMinDate(QDate(2023, 1, 1)); // another year than that of the calendar before
    date.setMaxDate(QDate(2023, 12, 31));
    expectTyped(date, {{u"1.5.23", u"{Alt+Down}{Right}{Return}", u"[02.05.2023]", u"open shut Change"},
                       {u"1.1.23", u"{Alt+Down}{Left}{Return}", u"[01.01.2023]", u"open shut"},
                       {u"5.5.22", u"{Tab}", u"[05.05.2022]", u"!"},
                       {u"5.5.22", u"1.3{Return}", u"01.03.2023", u"Change"},
                       {u"", u"31.12.22{Tab}", u"[31.12.2022]", u"Change !"},
                       {u"", u"1.1.23{Tab}", u"01.01.2023", u"Change left"},
                       {u"", u"31.12.{Tab}", u"31.12.2023", u"Change left"},
                       {u"", u"1.1.24{Tab}", u"[01.01.2024]", u"Change !"},
                       {u"", u"31.2.{Tab}", u"[31.2.]", u"Change !"},
                       {u"", u"{Tab}", u"", u"left"},
                       {u"1.1.23", u"{Down}{Tab}", u"01.01.2023", u"left"},
                       {u"30.12.23", u"{Up}{Up}{Up}{Down}", u"[30.12.2023]", u""}});
    date.setMaxDate(QDate(2025, 12, 31));
    date.setMinDate(QDate(2025, 1, 1)); // no day of the calendar as it was last
    expectTyped(date, {{u"1.5.25", u"{Alt+Down}{Right}{Return}", u"[02.05.2025]", u"open shut Change"}});
    date.setDate(QDate(2022, 5, 5)); // the program itself may set any
    EXPECT_EQ(told(), QString());
    date.setProperty("Date", QDate(2022, 5, 6));
    EXPECT_FALSE(owedChecksPass(m_window));
    EXPECT_EQ(told(), u"Change !"_s);
    EXPECT_EQ(m_message, u"Das Datum 06.05.2022 ist zu früh. Das erste mögliche Datum ist der 01.01.2025."_s);
}

TEST_F(FieldScreen, ANumberFieldReadsGermanNumbers)
{
    auto& field = add<NumberEdit>();
    add<NumberEdit>();
    QObject::connect(&field, &NumberEdit::Change, [&] { tell(QByteArray::number(field.Value(), 'g', 15)); });
    note(field, &NumberEdit::LostFocus, "left");
    open();
    expectTyped(field, {{u"", u"12,50{Tab}", u"12,50", u"1 12 12.5 left"},
                        {u"", u"12{Num+.}5{Tab}", u"12,50", u"1 12 12.5 left"},
                        {u"", u"1.250,75{Tab}", u"1.250,75", u"1 1250 1250.7 1250.75 left"},
                        {u"", u"-3{Tab}", u"-3,00", u"-3 left"},
                        {u"", u",5{Tab}", u"0,50", u"0.5 left"},
                        {u"", u"1x2e5{Tab}", u"125,00", u"1 12 125 left"},
                        {u"", u"1,2,3{Tab}", u"1,23", u"1 1.2 1.23 left"},
                        {u"1,123456789", u"{End}11{Tab}", u"1,1234567891", u"1.1234567891 left"},
                        {u"", u"-0{Tab}", u"0,00", u"left"},
                        {u"5", u"{Del}{Tab}", u"0,00", u"0 left"},
                        {u"", u"1.5{Tab}", u"1.5", u"1 !"},
                        {u"", u"-{Tab}", u"-", u"!"},
                        {u"", u"12.50,3{Tab}", u"12.50,3", u"1 12 !"}});
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(field.setProperty("Value", 7.5));
    EXPECT_EQ(told(), u"7.5"_s);
    EXPECT_TRUE(owedChecksPass(m_window));
}

TEST_F(FieldScreen, ANumberFieldShowsItsValue)
{
    auto& field = add<NumberEdit>();
    auto& next = add<NumberEdit>();
    const struct {
        double set, held;
        QStringView shown, entered;
    } rows[] = {
        {-2.8e-17, 0, u"0,00", u"[0,00]"},
        {0.1 + 0.2, 0.3, u"0,30", u"[0,30]"},
        {-123456.789, -123456.789, u"-123.456,789", u"[-123456,789]"},
        {-0.00001, -0.00001, u"-0,00001", u"[-0,00001]"},
        {1e308, 1e308, u"1E+308", u"[1E+308]"},
        {std::nan(""), 0, u"0,00", u"[0,00]"},
        {std::numeric_limits<double>::infinity(), 0, u"0,00", u"[0,00]"},
    };
    open();
    for (const auto& row : rows) {
        next.setFocus();
        field.setValue(row.set);
        EXPECT_EQ(field.Text(), row.shown);
        EXPECT_FALSE(field.Value() == 0 && std::signbit(field.Value()));
        QTest::mouseClick(&field, Qt::LeftButton);
        EXPECT_EQ(marked(field), row.entered);
        tippe(u"{Tab}");
        EXPECT_EQ(field.Text(), row.shown) << "after it was left";
        EXPECT_EQ(field.Value(), row.held);
    }
    field.setNumberFormat(u"##,##0.0"_s);
    field.setLocked(true);
    field.setFocus();
    field.setValue(-1250.125);
    EXPECT_EQ(field.Text(), u"-1.250,1"_s);

    const QPalette usual = QApplication::palette();
    for (const bool locked : {false, true}) { // then it stands on the ground of its window
        for (const QColor ground : {QColor(Qt::white), QColor(35, 35, 35)}) {
            QPalette palette;
            palette.setColor(QPalette::Base, locked ? Qt::gray : ground);
            palette.setColor(QPalette::Window, ground);
            palette.setColor(QPalette::Text, ground == Qt::white ? Qt::black : Qt::white);
            QApplication::setPalette(palette);
            NumberEdit shown;
            shown.setLocked(locked);
            shown.setValue(-5);
            const QColor red = shown.palette().color(QPalette::Text);
            EXPECT_GT(red.red(), red.green() + 100);
            EXPECT_GT(std::abs(red.lightness() - ground.lightness()), 80);
            EXPECT_EQ(shown.palette().color(QPalette::Base).alpha(), locked ? 0 : 255);
            shown.setValue(5);
            EXPECT_EQ(shown.palette().color(QPalette::Text), palette.color(QPalette::Text));
        }
    }
    QApplication::setPalette(usual);
}
