#include "platform/system/Messages.h"
#include "platform/system/Clock.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Keeps what it was to show.
class Recorder : public sys::Messages {
public:
    sys::Answer show(const QString& text, int flags) override
    {
        shown.append(QString::number(flags) + u' ' + text);
        return sys::Answer::Retry;
    }

    QStringList shown;
};

} // namespace

TEST(Messages, GoToTheInnermostScopeAndThenBack)
{
    Recorder outer;
    Recorder inner;
    const sys::MessageScope outerScope(outer);
    {
        const sys::MessageScope innerScope(inner);
        sys::critical(u"innen"_s);
    }
    EXPECT_EQ(sys::messages().show(u"außen"_s, sys::YesNo | sys::Question), sys::Answer::Retry);
    EXPECT_EQ(inner.shown, QStringList(u"16 innen"_s));
    EXPECT_EQ(outer.shown, QStringList(u"36 außen"_s));
}

TEST(Messages, OnATerminalAreLinesAndTheDefaultButtonIsTheAnswer)
{
    using namespace sys;
    struct Case {
        int flags;
        Answer answer;
    };
    const Case cases[] = {
        {OKOnly | Critical, Answer::OK},
        {YesNo | Question, Answer::Yes},
        {YesNo | DefaultButton2, Answer::No},
        {AbortRetryIgnore | Exclamation, Answer::Abort},
        {AbortRetryIgnore | DefaultButton2, Answer::Retry},
        {AbortRetryIgnore | DefaultButton3 | Information, Answer::Ignore},
        {YesNo | DefaultButton3, Answer::No},
    };
    for (const Case& c : cases) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(messages().show(u"Größe <b>&\rzwei\r\ndrei\nvier"_s, c.flags), c.answer) << c.flags;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Größe <b>&\nzwei\ndrei\nvier\n");
    }
}

TEST(Clock, CanBeSetAndRunsAgain)
{
    sys::stelleUhr(QDate(2024, 2, 29));
    EXPECT_EQ(sys::heute(), QDate(2024, 2, 29));
    sys::stelleUhr({});
    EXPECT_LE(std::abs(sys::heute().daysTo(QDate::currentDate())), 1);
}
