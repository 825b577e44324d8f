#include "platform/jet/NumberFormat.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NumberFormat, ShowsNumbersTheGermanWay)
{
    const struct {
        double value;
        const char* shown;
    } cases[] = {
        {0, "0,00"},
        {0.5, "0,50"},
        {-0.004, "0,00"},
        {-0.0, "0,00"},
        {5.6e-17, "0,00"},
        {0.005, "0,01"},
        {-0.005, "-0,01"},
        {1.005, "1,01"},
        {2.675, "2,68"},
        {2.665, "2,67"},
        {0.615, "0,62"},
        {0.0049999, "0,00"},
        {9.995, "10,00"},
        {999.995, "1.000,00"},
        {999.994, "999,99"},
        {1234.5, "1.234,50"},
        {-1234567.895, "-1.234.567,90"},
        {1e15, "1.000.000.000.000.000,00"},
        {123456.785, "123.456,79"},
    };
    for (const auto& c : cases)
        for (const QString& format : {u"##,##0.00"_s, u"##,#0.00"_s})
            EXPECT_EQ(jet::formatted(c.value, format), QString::fromUtf8(c.shown));
    EXPECT_EQ(jet::formatted(1234.5, u"0"), u"1235"_s);
    EXPECT_EQ(jet::formatted(7, u"000.0"), u"007,0"_s);
}

TEST(NumberFormat, ShowsOptionalDecimalsOnlyWhereTheNumberHasThem)
{
    const struct {
        double value;
        QStringView pattern;
        QString text;
    } cases[] = {
        {1234.5, u"##,##0.00########", u"1.234,50"_s},
        {0.00001, u"##,##0.00########", u"0,00001"_s},
        {-1250, u"##,##0.00########", u"-1.250,00"_s},
        {1.0 / 3, u"##,##0.00####", u"0,333333"_s},
        {-0.0000000000004, u"0.00###", u"0,00"_s},
        {2.145, u"0.00", u"2,15"_s},
        {100, u"0", u"100"_s},
        {99.5, u"0", u"100"_s},
        {1e308, u"##,##0.00", u"1E+308"_s},
    };
    for (const auto& c : cases)
        EXPECT_EQ(jet::formatted(c.value, c.pattern), c.text);
}
