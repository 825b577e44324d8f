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
    testing::internal::CaptureStderr();
    EXPECT_EQ(messages().show(u"Größe <b>&\rzwei\r\ndrei\nvier"_s, OKOnly | Critical), Answer::OK);
    for (const auto& [flags, answer] : {std::pair(YesNo | Question, Answer::Yes),
                                        {YesNo | DefaultButton2, Answer::No},
                                        {YesNo | DefaultButton3, Answer::No},
                                        {AbortRetryIgnore | DefaultButton2, Answer::Retry},
                                        {AbortRetryIgnore | DefaultButton3 | Information, Answer::Ignore}})
        EXPECT_EQ(messages().show({}, flags), answer) << flags;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Größe <b>&\nzwei\ndrei\nvier\n\n\n\n\n\n");
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
    } user;
    const MessageScope scope(user);
    // The second step throws at each try while there is an answer left.
    const auto run = [&user](const QList<Answer>& answers) {
        user.answers = answers;
        QString steps;
        const auto second = [&] {
            steps += u'2';
            if (!user.answers.isEmpty()) throw FileError(FileErrorNumber::FileNotFound, u"Die Datei fehlt."_s);
        };
        const auto outcome = underErrorReport({[&] { steps += u'1'; }, second, [&] { steps += u'3'; }});
        return steps + (outcome == Outcome::Left ? u" left"_s : u""_s);
    };
    EXPECT_EQ(run({Answer::Abort}), u"12 left"_s);
    EXPECT_EQ(run({Answer::Retry, Answer::Ignore}), u"1223"_s);
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
