#include "platform/system/Messages.h"

#include "platform/system/CaughtError.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/Pointer.h"
#include "tests/support/Print.h"

#include <zablager/FileError.h>

#include <QCursor>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

TEST(Messages, OnATerminalAreLinesAndTheDefaultButtonIsTheAnswer)
{
    using namespace sys;
    const std::pair<int, Answer> cases[] = {
        {OKOnly | Critical, Answer::OK},
        {YesNo | Question, Answer::Yes},
        {YesNo | DefaultButton2, Answer::No},
        {AbortRetryIgnore | Exclamation, Answer::Abort},
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
    using namespace sys;
    struct User final : Messages {
        Answer show(const QString& text, int flags) override
        {
            EXPECT_EQ(QString::number(flags) + u' ' + text,
                      u"530 Es ist ein kritischer Zustand aufgetreten.\r\rFehler: 53 wurde ausgelöst durch ZABLAGER\r"
                      u"Die Datei fehlt."_s);
            return answers.takeFirst();
        }
        QList<Answer> answers;
    };
    const struct {
        QList<Answer> answers;
        QString run; ///< The steps as they ran; the second one throws at each try while there is an answer left.
        Outcome outcome;
    } cases[] = {
        {{Answer::Abort}, u"12"_s, Outcome::Left},
        {{Answer::Ignore}, u"123"_s, Outcome::Completed},
        {{Answer::Retry}, u"1223"_s, Outcome::Completed},
        {{Answer::Retry, Answer::Retry, Answer::Abort}, u"1222"_s, Outcome::Left},
    };
    for (const auto& [answers, expected, outcome] : cases) {
        User user;
        user.answers = answers;
        const MessageScope scope(user);
        QString run;
        const auto second = [&] {
            run += u'2';
            if (!user.answers.isEmpty()) throw FileError(FileErrorNumber::FileNotFound, u"Die Datei fehlt."_s);
        };
        EXPECT_EQ(underErrorReport({[&] { run += u'1'; }, second, [&] { run += u'3'; }}), outcome);
        EXPECT_EQ(run, expected);
    }
    try {
        throw std::bad_alloc();
    } catch (...) {
        EXPECT_EQ(caughtError().text, u"Interner Fehler: std::bad_alloc"_s);
    }
}

TEST(Hourglass, NestsAndLeavesTheHostsPointerAlone)
{
    sys::MausWarten(); // without a screen: nothing
    int argc = 1;
    char name[] = "system_test";
    char* argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    QGuiApplication::setOverrideCursor(Qt::CrossCursor); // the host's
    QString shapes;
    for (const auto step : {&sys::MausNormal, &sys::MausWarten, &sys::MausWarten, &sys::MausNormal, &sys::MausWarten,
                            &sys::resetPointer, &sys::MausNormal}) {
        step();
        shapes += QGuiApplication::overrideCursor()->shape() == Qt::CrossCursor ? u'+' : u'w';
    }
    EXPECT_EQ(shapes, u"+wwww++"_s);
}
