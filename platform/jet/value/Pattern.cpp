#include "platform/jet/value/Pattern.h"

#include "platform/jet/Errors.h"

#include <QHash>

#include <vector>

namespace jet {

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

/// A set of places in a pattern: bit i stands for its i-th element.
using Places = std::vector<quint64>;

constexpr qsizetype Bits = 64;

void add(Places& places, qsizetype place)
{
    places[static_cast<std::size_t>(place / Bits)] |= quint64{1} << (place % Bits);
}

/// Follows all ways through the pattern at once, 64 places of it in a step: going back to the last * for each
/// letter of a long text would take a step for each pair of letters.
bool matchesLong(QStringView text, QStringView pattern)
{
    std::vector<QStringView> elements; // without the stars
    const auto words = static_cast<std::size_t>(pattern.size() / Bits + 1);
    Places stars(words);
    for (qsizetype at = 0; at < pattern.size();) {
        const qsizetype end = elementEnd(pattern, at);
        if (pattern[at] == u'*')
            add(stars, static_cast<qsizetype>(elements.size()));
        else
            elements.push_back(pattern.mid(at, end - at));
        at = end;
    }
    const auto count = static_cast<qsizetype>(elements.size());
    QHash<QChar, Places> taking; // the elements that take a letter
    Places here(words);          // elements before which the text read so far may end
    add(here, 0);
    for (const QChar letter : text) {
        auto found = taking.find(letter);
        if (found == taking.end()) {
            found = taking.insert(letter, Places(words));
            for (qsizetype i = 0; i < count; ++i)
                if (matchesElement(letter, elements[static_cast<std::size_t>(i)])) add(*found, i);
        }
        quint64 carry = 0;
        for (std::size_t word = 0; word < words; ++word) {
            const quint64 taken = here[word] & (*found)[word];
            here[word] = (taken << 1) | carry | (here[word] & stars[word]);
            carry = taken >> (Bits - 1);
        }
    }
    return ((here[static_cast<std::size_t>(count / Bits)] >> (count % Bits)) & 1) != 0;
}

} // namespace

bool matches(const QString& text, const QString& pattern)
{
    const QString wanted = pattern.toLower();
    const QString given = text.toLower();
    const QStringView p(wanted);
    if (p.size() > Bits) return matchesLong(given, p);
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

} // namespace jet
