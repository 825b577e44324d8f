#include "platform/controls/NumberEdit.h"
#include "platform/controls/NumberEntry.h"
#include "tests/platform/controls/FieldScreen.h"
#include "tests/support/Print.h"

#include <QApplication>
#include <QClipboard>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

class NumberEditTest : public FieldScreen {
protected:
    NumberEdit& m_field = add<NumberEdit>();
    NumberEdit& m_next = add<NumberEdit>();
};

} // namespace

TEST_F(NumberEditTest, ReadsGermanNumbersWhileTheyAreTyped)
{
    const struct {
        QString keys;
        double value;  // while the field has the focus
        QString shown; // after it was left; what was refused stays as typed
        bool isRefused = false;
    } cases[] = {
        {u"12,5"_s, 12.5, u"12,50"_s},
        {u"1.250"_s, 1250, u"1.250,00"_s},
        {u"1.250,75"_s, 1250.75, u"1.250,75"_s},
        {u"-3"_s, -3, u"-3,00"_s},
        {u",5"_s, 0.5, u"0,50"_s},
        {u"0,00001"_s, 0.00001, u"0,00001"_s},
        {u"1x2e5"_s, 125, u"125,00"_s},
        {u"1,2,3"_s, 1.23, u"1,23"_s},
        {u"1,12345678901"_s, 1.123456789, u"1,123456789"_s},
        {u"1234567890123"_s, 123456789012, u"123.456.789.012,00"_s},
        {u"-0"_s, 0, u"0,00"_s},
        {u"1.5"_s, 1, u"1.5"_s, true},
        {u"-"_s, 0, u"-"_s, true},
        {u"12.50,3"_s, 12, u"12.50,3"_s, true},
    };
    show();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keys.toStdString());
        m_field.setValue(0);
        m_field.setFocus();
        QTest::keyClicks(&m_field, c.keys);
        EXPECT_EQ(m_field.Value(), c.value);
        QTest::keyClick(&m_field, Qt::Key_Tab);
        EXPECT_EQ(m_field.Text(), c.shown);
        EXPECT_EQ(m_field.hasFocus(), c.isRefused);
        EXPECT_EQ(messages().size(), c.isRefused ? 1 : 0);
        m_next.setFocus();
    }
}

TEST_F(NumberEditTest, HoldsItsValueWithoutDust)
{
    const struct {
        double set, held;
        QString shown;
    } cases[] = {
        {-2.8e-17, 0, u"0,00"_s},
        {0.1 + 0.2, 0.3, u"0,30"_s},
        {123456.7, 123456.7, u"123.456,70"_s},
        {-0.0001, -0.0001, u"-0,0001"_s},
        {1e308, 1e308, u"1E+308"_s},
        {std::nan(""), 0, u"0,00"_s},
        {std::numeric_limits<double>::infinity(), 0, u"0,00"_s},
    };
    show();
    m_next.setFocus();
    for (const auto& c : cases) {
        m_field.setValue(c.set);
        EXPECT_EQ(m_field.Value(), c.held);
        EXPECT_FALSE(m_field.Value() == 0 && std::signbit(m_field.Value()));
        EXPECT_EQ(m_field.Text(), c.shown);
        m_field.setFocus(); // entering and leaving changes nothing
        QTest::keyClick(&m_field, Qt::Key_Tab);
        EXPECT_TRUE(m_next.hasFocus());
        EXPECT_EQ(m_field.Value(), c.held);
        EXPECT_EQ(m_field.Text(), c.shown);
    }
}

TEST_F(NumberEditTest, IsTypedOverOnceEntered)
{
    m_field.setValue(-1250.125);
    m_field.setNumberFormat(u"##,##0.0"_s);
    show();
    EXPECT_EQ(m_field.selectedText(), u"-1250,125"_s) << "the first field of the window";
    m_next.setFocus();
    EXPECT_EQ(m_field.Text(), u"-1.250,1"_s);
    QTest::mouseClick(&m_field, Qt::LeftButton);
    EXPECT_EQ(m_field.selectedText(), u"-1250,125"_s);
    QTest::keyClick(&m_field, Qt::Key_7);
    QTest::keyClick(&m_field, Qt::Key_Period, Qt::KeypadModifier);
    QTest::keyClick(&m_field, Qt::Key_5);
    EXPECT_EQ(m_field.Value(), 7.5);
    QApplication::clipboard()->setText(u"3,25"_s);
    m_field.selectAll();
    QTest::keyClick(&m_field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(m_field.Value(), 3.25);
}

TEST_F(NumberEditTest, TellsOfAnotherValueOnly)
{
    show();
    const auto changes = counted(m_field, &NumberEdit::Change);
    m_field.setValue(5);
    m_field.setFocus();
    QTest::keyClick(&m_field, Qt::Key_Tab);
    EXPECT_EQ(*changes, 0);
    m_field.setFocus();
    QTest::keyClicks(&m_field, u"12,0"_s); // 1, 12
    EXPECT_EQ(*changes, 2);
    EXPECT_TRUE(m_field.setProperty("Value", 7.5));
    EXPECT_TRUE(m_field.setProperty("Value", 7.5));
    EXPECT_EQ(*changes, 3);
    m_field.setProperty("Text", u"1.000"_s);
    EXPECT_EQ(m_field.property("Value"), QVariant(1000.0));
    EXPECT_EQ(*changes, 4);
}

TEST_F(NumberEditTest, ShowsANegativeFigureInRedAndLegible)
{
    const QPalette usual = QApplication::palette();
    for (const QColor base : {QColor(Qt::white), QColor(35, 35, 35)}) {
        QPalette palette = usual;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, base == Qt::white ? Qt::black : Qt::white);
        QApplication::setPalette(palette);
        NumberEdit field;
        field.setValue(-5);
        const QColor red = field.palette().color(QPalette::Text);
        EXPECT_GT(red.red(), red.green() + 100);
        EXPECT_GT(std::abs(red.lightness() - base.lightness()), 80);
        field.setValue(5);
        EXPECT_EQ(field.palette().color(QPalette::Text), palette.color(QPalette::Text));
    }
    QApplication::setPalette(usual);
}
