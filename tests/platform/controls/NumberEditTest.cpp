#include "platform/controls/NumberEdit.h"
#include "tests/platform/controls/FieldScreen.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

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
