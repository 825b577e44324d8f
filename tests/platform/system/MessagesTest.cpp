#include "platform/system/Messages.h"

#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"
#include "tests/support/Print.h"

#include <zablager/FileError.h>

#include <QCursor>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using namespace sys;

TEST(Messages, OnATerminalAreLinesAndTheDefaultButtonIsTheAnswer)
{
    const std::pair<int, Answer> cases[] = {
        {OKOnly | Critical, Answer::OK},
        {YesNo | Question, Answer::Yes},
        {AbortRetryIgnore | DefaultButton2, Answer::Retry},
        {AbortRetryIgnore | DefaultButton3 | Information, Answer::Ignore},
        {YesNo | DefaultButton3, Answer::No},
    };
    for (const auto& [flags, answer] : cases) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(messages().show(u"Größe <b>&\rzwei\r\ndrei\nvier"_s, flags), answer) << flags;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Größe <b>&\nzwei\ndrei\nvier\n");
    }
}

TEST(Messages, OfAnErrorRepeatLeaveOrGoOnAsTheUserSays)
{
    struct User final : Messages {
        Answer show(const QString& text, int flags) override
        {
            const auto error =
                answers.size() > 1 ? u"53%1Sie fehlt."_s : u"51%1Interner Fehler: std::bad_alloc"_s;
            EXPECT_EQ(text, u"Es ist ein kritischer Zustand aufgetreten.\r\rFehler: "_s +
                                error.arg(u" wurde ausgelöst durch ZABLAGER\r"_s));
            EXPECT_EQ(flags, AbortRetryIgnore | Critical | DefaultButton3);
            return answers.takeFirst();
        }
        QList<Answer> answers;
    };
    const std::tuple<QList<Answer>, QString, Outcome> cases[] = {
        // the second step throws while there is an answer left
        {{Answer::Abort}, u"12"_s, Outcome::Left},
        {{Answer::Retry}, u"1223"_s, Outcome::Done},
        {{Answer::Retry, Answer::Retry, Answer::Ignore}, u"12223"_s, Outcome::Ignored},
    };
    for (const auto& [answers, expected, outcome] : cases) {
        User user;
        user.answers = answers;
        const MessageScope scope(user);
        QString run;
        const auto second = [&] {
            run += u'2';
            if (user.answers.size() == 1) throw std::bad_alloc();
            if (!user.answers.isEmpty()) throw FileError(FileErrorNumber::FileNotFound, u"Sie fehlt."_s);
        };
        EXPECT_EQ(underErrorReport({[&] { run += u'1'; }, second, [&] { run += u'3'; }}), outcome);
        EXPECT_EQ(run, expected);
    }
}

TEST(Hourglass, NestsAndLeavesTheHostsPointerAlone)
{
    MausWarten(); // without a screen: nothing
    int none = 0;
    const QGuiApplication application(none, nullptr);
    QGuiApplication::setOverrideCursor(Qt::CrossCursor); // the host's
    QString shapes;
    for (const auto step :
         {&MausNormal, &MausWarten, &MausWarten, &MausNormal, &MausWarten, &resetPointer, &MausNormal}) {
        step();
        shapes += QGuiApplication::overrideCursor()->shape() == Qt::CrossCursor ? u'+' : u'w';
    }
    EXPECT_EQ(shapes, u"+wwww++"_s);
}
