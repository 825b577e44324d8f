#include "platform/system/ErrorReport.h"

#include "platform/system/Application.h"
#include "platform/system/CaughtError.h"
#include "platform/system/Messages.h"
#include "platform/system/Pointer.h"

namespace sys {

using namespace Qt::StringLiterals;

namespace {

Answer report(const CaughtError& error)
{
    resetPointer();
    const QString text = u"Es ist ein kritischer Zustand aufgetreten."_s + u"\r\r"_s + u"Fehler: "_s +
                         QString::number(error.number) + u" wurde ausgelöst durch "_s +
                         ApplicationName.toString() + u'\r' + error.text;
    return messages().show(text, AbortRetryIgnore | Critical | DefaultButton3);
}

/// Runs a step until it succeeds or the user wants no further try.
Answer run(const std::function<void()>& step)
{
    for (;;) {
        try {
            step();
            return Answer::OK;
        } catch (...) {
            const Answer answer = report(caughtError());
            if (answer != Answer::Retry) return answer;
        }
    }
}

} // namespace

Outcome underErrorReport(const std::vector<std::function<void()>>& steps)
{
    auto outcome = Outcome::Done;
    for (const auto& step : steps) {
        const Answer answer = run(step);
        if (answer == Answer::Abort) return Outcome::Left;
        if (answer != Answer::OK) outcome = Outcome::Ignored;
    }
    return outcome;
}

} // namespace sys
