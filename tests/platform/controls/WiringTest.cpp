#include "platform/controls/Wiring.h"
#include "platform/controls/DataControl.h"
#include "platform/system/Messages.h"
#include "tests/support/Print.h"

#include <QCheckBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Answers the common error report, in turn.
class Answers final : public sys::Messages {
public:
    explicit Answers(std::vector<sys::Answer> answers) : m_answers(std::move(answers)) {}
    sys::Answer show(const QString& text, int) override
    {
        m_texts.append(text);
        return m_answers.at(std::size_t(m_texts.size()) - 1);
    }
    const QStringList& texts() const { return m_texts; }

private:
    std::vector<sys::Answer> m_answers;
    QStringList m_texts;
    sys::MessageScope m_scope{*this};
};

[[noreturn]] void fail()
{
    throw jet::Error(jet::ErrorNumber::Locked, u"Gesperrt."_s);
}

class Screen : public QObject {
public:
    void without() { m_calls.append(u"without"_s); }
    void with(bool on) { m_calls.append(on ? u"on"_s : u"off"_s); }
    QStringList m_calls;
};

} // namespace

TEST(Wiring, HandlersMayTakeFewerArgumentsThanTheSignal)
{
    QCheckBox box;
    Screen screen;
    verdrahte(&box, &QCheckBox::clicked, &screen, &Screen::without);
    verdrahte(&box, &QCheckBox::clicked, &screen, &Screen::with);
    verdrahte(&box, &QAbstractButton::toggled, &screen, [&screen] { screen.m_calls.append(u"toggled"_s); });
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(screen.m_calls, QStringList({u"toggled"_s, u"without"_s, u"on"_s}));

    QTimer timer; // its signal has a private argument
    bool fired = false;
    verdrahte(&timer, &QTimer::timeout, &screen, [&fired] { fired = true; });
    timer.start(0);
    EXPECT_TRUE(QTest::qWaitFor([&fired] { return fired; }));
}

TEST(Wiring, AHandlerThatFailsIsReportedAndEndsNothing)
{
    const struct {
        const char* name;
        std::vector<sys::Answer> answers;
        bool refused;
    } cases[] = {
        {"ignored", {sys::Answer::Ignore}, true},
        {"left", {sys::Answer::Abort}, true},
        {"repeated with success", {sys::Answer::Retry}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Answers answers(c.answers);
        DataControl data;
        int tries = 0;
        bool other = false;
        verdrahte(&data, &DataControl::Validate, &data, [&](DataControl::Action, Cancel& cancel) {
            cancel = false;
            if (++tries == 1) fail();
        });
        verdrahte(&data, &DataControl::Validate, &data, [&other] { other = true; });
        Cancel cancel;
        bool save = true;
        Q_EMIT data.Validate(DataControl::Action::Close, cancel, save);
        EXPECT_EQ(bool(cancel), c.refused);
        EXPECT_EQ(answers.texts().size(), 1);
        EXPECT_TRUE(answers.texts().value(0).contains(u"3218"_s));
        EXPECT_TRUE(other);
    }
}

TEST(Wiring, NumbersTheElementsOfAControlArray)
{
    QObject first;
    QObject second;
    nummeriere(u"Command7"_s, {&first, &second});
    EXPECT_EQ(first.objectName() + second.objectName(), u"Command7(0)Command7(1)"_s);
}
