#include "platform/controls/DateCombo.h"
#include "platform/controls/TextBox.h"
#include "platform/system/Clock.h"
#include "tests/platform/controls/FieldScreen.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

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
    tippe(u"{Alt+Down}{Esc}");                                               // makes the calendar
    expectTyped(date, {{u"", u"31.12.{Tab}", u"31.12.2026", u"Change left"}, // first: no date stood there before
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
