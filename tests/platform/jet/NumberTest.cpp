#include "platform/jet/NumberFormat.h"
#include "tests/platform/jet/Scratch.h"
#include "tests/support/Print.h"

using namespace Qt::StringLiterals;

TEST(Number, OfFourBytesRoundsHalfToEven)
{
    EXPECT_EQ(jet::Value(-3.5).toLong(), -4);
    EXPECT_EQ(jet::Value(u"1.234,5"_s).toLong(), 1234);
    EXPECT_EQ(jet::Value(2147483647.4).toLong(), 2147483647);
    EXPECT_EQ(refused([] { (void)jet::Value(2147483647.5).toLong(); }), 6);
    EXPECT_EQ(refused([] { (void)jet::Value(u"zwei"_s).toLong(); }), 3421);
}

TEST(Number, IsShownTheGermanWay)
{
    const struct {
        double value;
        const char16_t* format;
        QString shown;
    } cases[] = {
        {0, u"##,#0.00", u"0,00"_s},
        {-0.004, u"##,##0.00", u"0,00"_s},
        {0.005, u"##,##0.00", u"0,01"_s}, // half away from zero, unlike Round
        {-0.005, u"##,##0.00", u"-0,01"_s},
        {1.005, u"##,##0.00", u"1,01"_s}, // on the digits that a person sees
        {2.665, u"##,##0.00", u"2,67"_s},
        {999.995, u"##,##0.00", u"1.000,00"_s},
        {-1234567.895, u"##,##0.00", u"-1.234.567,90"_s},
        {1e15, u"##,##0.00", u"1.000.000.000.000.000,00"_s},
        {1e16, u"##,##0.00", u"1E+16"_s},
        {1234.5, u"0", u"1235"_s},
        {99.5, u"0", u"100"_s},
        {7, u"000.0", u"007,0"_s},
        {1234.5, u"##,##0.00########", u"1.234,50"_s}, // more decimals where the number has them
        {0.00001, u"##,##0.00########", u"0,00001"_s},
        {1.0 / 3, u"##,##0.00####", u"0,333333"_s},
        {-0.0000000000004, u"0.00###", u"0,00"_s},
    };
    for (const auto& given : cases)
        EXPECT_EQ(jet::formatted(given.value, QStringView(given.format)), given.shown);
}
