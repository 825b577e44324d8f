#include "platform/system/Messages.h"

#include "platform/system/Surroundings.h"

#include <algorithm>
#include <cstdio>

namespace sys {

using namespace Qt::StringLiterals;

namespace {

constexpr int ButtonMask = 0x0F;
constexpr int DefaultButtonMask = 0x300;

} // namespace

std::vector<Answer> buttons(int flags)
{
    switch (flags & ButtonMask) {
    case AbortRetryIgnore: return {Answer::Abort, Answer::Retry, Answer::Ignore};
    case YesNo: return {Answer::Yes, Answer::No};
    case YesNoCancel: return {Answer::Yes, Answer::No, Answer::Cancel};
    case OKCancel: return {Answer::OK, Answer::Cancel};
    default: return {Answer::OK};
    }
}

Answer defaultAnswer(int flags)
{
    const std::vector<Answer> all = buttons(flags);
    const auto wanted = static_cast<size_t>(flags & DefaultButtonMask) / DefaultButton2;
    return all[std::min(wanted, all.size() - 1)];
}

QString withLineFeeds(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

Answer ConsoleMessages::show(const QString& text, int flags)
{
    const QByteArray bytes = (withLineFeeds(text) + u'\n').toUtf8();
    std::fwrite(bytes.data(), 1, static_cast<size_t>(bytes.size()), stderr);
    return defaultAnswer(flags);
}

Messages& messages()
{
    return *surroundings().messages;
}

MessageScope::MessageScope(Messages& target) : m_before(surroundings().messages)
{
    surroundings().messages = &target;
}

MessageScope::~MessageScope()
{
    surroundings().messages = m_before;
}

void critical(const QString& text)
{
    messages().show(text, Critical | OKOnly);
}

} // namespace sys
