#include "platform/system/Messages.h"

#include "platform/system/CaughtError.h"
#include "platform/system/ErrorReport.h"
#include "tests/support/Print.h"

#include <zablager/DatabaseError.h>
#include <zablager/FileError.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Keeps what it was to show.
class Recorder : public sys::Messages {
public:
    sys::Answer show(const QString& text, int flags) override
    {
        shown.append(QString::number(flags) + u' ' + text);
        return answers.isEmpty() ? sys::Answer::Retry : answers.takeFirst();
    }

    QStringList shown;
    QList<sys::Answer> answers;
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

TEST(ErrorReport, LeavesRepeatsOrGoesOnAsTheUserSays)
{
    using namespace sys;
    struct Case {
        QList<Answer> answers;
        QString run; ///< The steps as they ran; the second one throws at each try while there is an answer left.
        Outcome outcome;
    };
    const Case cases[] = {
        {{Answer::Abort}, u"12"_s, Outcome::Left},
        {{Answer::Ignore}, u"123"_s, Outcome::Completed},
        {{Answer::Retry}, u"1223"_s, Outcome::Completed},
        {{Answer::Retry, Answer::Retry, Answer::Abort}, u"1222"_s, Outcome::Left},
    };
    const QString text =
        u"530 Es ist ein kritischer Zustand aufgetreten.\r\rFehler: 53 wurde ausgelöst durch ZABLAGER\r"
        u"Die Datei fehlt."_s;
    for (const Case& c : cases) {
        Recorder user;
        user.answers = c.answers;
        const MessageScope scope(user);
        QString run;
        const auto second = [&] {
            run += u'2';
            if (!user.answers.isEmpty()) throw FileError(FileErrorNumber::FileNotFound, u"Die Datei fehlt."_s);
        };
        EXPECT_EQ(underErrorReport({[&] { run += u'1'; }, second, [&] { run += u'3'; }}), c.outcome);
        EXPECT_EQ(run, c.run);
        EXPECT_EQ(user.shown, QStringList(c.answers.size(), text));
    }
}

TEST(ErrorReport, TellsEveryExceptionByNumberAndText)
{
    const auto told = [](const auto& exception) {
        try {
            throw exception;
        } catch (...) {
            const sys::CaughtError error = sys::caughtError();
            return QString::number(error.number) + u' ' + error.text;
        }
    };
    EXPECT_EQ(told(jet::Error(jet::ErrorNumber::Locked, u"Gesperrt."_s)), u"3218 Gesperrt."_s);
    EXPECT_EQ(told(sys::FileError(sys::FileErrorNumber::DiskFull, u"Voll."_s)), u"61 Voll."_s);
    EXPECT_EQ(told(std::bad_alloc()), u"51 Interner Fehler: std::bad_alloc"_s);
}
