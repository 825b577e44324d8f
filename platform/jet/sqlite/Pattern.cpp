#include "platform/jet/sqlite/Pattern.h"

#include "platform/jet/Errors.h"

namespace jet::sqlite {

namespace {

/// The end of the element of the pattern that begins at `at`: one character, or a list in brackets.
qsizetype elementEnd(QStringView pattern, qsizetype at)
{
    if (pattern[at] != u'[') return at + 1;
    const qsizetype end = pattern.indexOf(u']', at + 1);
    if (end < 0) raise(ErrorNumber::InvalidArgument);
    return end + 1;
}

bool isInList(QChar c, QStringView list)
{
    const bool negated = list.startsWith(u'!');
    if (negated) list = list.mid(1);
    bool found = false;
    for (qsizetype i = 0; i < list.size(); ++i) {
        const bool range = i + 2 < list.size() && list[i + 1] == u'-';
        found = found || (range ? c >= list[i] && c <= list[i + 2] : c == list[i]);
        if (range) i += 2;
    }
    return found != negated;
}

bool matchesElement(QChar c, QStringView element)
{
    if (element == u"?") return true;
    if (element == u"#") return c >= u'0' && c <= u'9';
    if (element.size() > 1) return isInList(c, element.mid(1, element.size() - 2));
    return c == element.front();
}

} // namespace

bool matches(const QString& text, const QString& pattern)
{
    const QString wanted = pattern.toLower();
    const QString given = text.toLower();
    const QStringView p(wanted);
    qsizetype star = -1; // the last * met, and where the text stood then
    qsizetype starText = 0;
    qsizetype at = 0;
    qsizetype i = 0;
    while (i < given.size()) {
        if (at < p.size() && p[at] == u'*') {
            star = at++;
            starText = i;
        } else if (at < p.size() && matchesElement(given[i], p.mid(at, elementEnd(p, at) - at))) {
            at = elementEnd(p, at);
            ++i;
        } else if (star >= 0) {
            at = star + 1;
            i = ++starText; // the * takes one character more
        } else {
            return false;
        }
    }
    while (at < p.size() && p[at] == u'*')
        ++at;
    return at == p.size();
}

} // namespace jet::sqlite
