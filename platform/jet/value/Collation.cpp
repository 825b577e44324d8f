#include "platform/jet/value/Collation.h"

#include <unicode/ucol.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace jet {

namespace {

/// A character that counts only where all else is equal. Tab and line breaks are blanks, not among them.
bool countsLast(UChar32 c)
{
    return c == '-' || c == '\'' || c == 0xAD || (c >= 0 && c < 0x20 && !(c >= 0x09 && c <= 0x0D)) ||
           (c >= 0x7F && c < 0xA0 && c != 0x85);
}

bool isSharpS(UChar32 c)
{
    return c == 0xDF || c == 0x1E9E;
}

class Collator {
public:
    Collator()
    {
        // The common order of all languages, which is the German one. Rules for what differs would be ten
        // times slower to open; lettersOf() does it instead.
        UErrorCode status = U_ZERO_ERROR;
        m_collator = ucol_open("root", &status);
        if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
        ucol_setStrength(m_collator, UCOL_SECONDARY);
        ucol_setAttribute(m_collator, UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
        rankAscii();
    }

    ~Collator() { ucol_close(m_collator); }
    Collator(const Collator&) = delete;
    Collator& operator=(const Collator&) = delete;

    int compare(std::string_view left, std::string_view right) const
    {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(m_collator, left.data(), static_cast<int32_t>(left.size()), right.data(),
                                static_cast<int32_t>(right.size()), &status);
    }

    /// Place of an ASCII character in the order, the same for both cases; 0: not to be judged by itself.
    unsigned char rank(char c) const { return m_ranks[static_cast<unsigned char>(c)]; }

    QByteArray version() const
    {
        UVersionInfo version{};
        ucol_getVersion(m_collator, version);
        return QByteArray(reinterpret_cast<const char*>(version), sizeof version).toHex();
    }

private:
    void rankAscii()
    {
        std::vector<char> characters;
        for (char c = 0x20; c < 0x7F; ++c)
            if (!countsLast(c)) characters.push_back(c);
        std::stable_sort(characters.begin(), characters.end(), [this](char left, char right) {
            return compare({&left, 1}, {&right, 1}) < 0;
        });
        unsigned char rank = 0;
        for (std::size_t i = 0; i < characters.size(); ++i) {
            if (i == 0 || compare({&characters[i - 1], 1}, {&characters[i], 1}) != 0) ++rank;
            m_ranks[static_cast<unsigned char>(characters[i])] = rank;
        }
    }

    UCollator* m_collator = nullptr;
    std::array<unsigned char, 256> m_ranks{};
};

const Collator& collator()
{
    static const Collator instance;
    return instance;
}

/// The characters that count last, each with the number of letters before it.
std::vector<std::pair<int, UChar32>> lastOnes(std::string_view text)
{
    std::vector<std::pair<int, UChar32>> found;
    int letters = 0;
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < length;) {
        UChar32 c = 0;
        U8_NEXT(bytes, i, length, c);
        if (countsLast(c))
            found.emplace_back(letters, c);
        else
            letters += isSharpS(c) ? 2 : 1;
    }
    return found;
}

/// The letters alone: no characters that count last, and ss for both forms of ß.
std::string lettersOf(std::string_view text)
{
    std::string letters;
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    std::size_t kept = 0; // what lies between two exceptions is copied in one piece
    for (int32_t i = 0; i < length;) {
        const auto start = static_cast<std::size_t>(i);
        UChar32 c = 0;
        U8_NEXT(bytes, i, length, c);
        if (!isSharpS(c) && !countsLast(c)) continue;
        letters.append(text, kept, start - kept);
        if (isSharpS(c)) letters += "ss";
        kept = static_cast<std::size_t>(i);
    }
    return letters.append(text, kept);
}

int compareGenerally(std::string_view left, std::string_view right)
{
    if (const int order = collator().compare(lettersOf(left), lettersOf(right))) return order;
    const auto leftOnes = lastOnes(left);
    const auto rightOnes = lastOnes(right);
    if (leftOnes == rightOnes) return 0;
    return leftOnes < rightOnes ? -1 : 1;
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool isPlain(std::string_view text, std::size_t index)
{
    return index >= text.size() || static_cast<unsigned char>(text[index]) < 0x80;
}

} // namespace

int compareTexts(std::string_view left, std::string_view right)
{
    // Most comparisons of a statement meet equal bytes, most others differ within plain ASCII.
    if (left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size()) == 0) return 0;
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const unsigned char leftRank = collator().rank(left[i]);
        const unsigned char rightRank = collator().rank(right[i]);
        if (leftRank == 0 || rightRank == 0) return compareGenerally(left, right);
        if (leftRank == rightRank) continue;
        // A combining character behind the letter may still belong to it.
        if (!isPlain(left, i + 1) || !isPlain(right, i + 1)) return compareGenerally(left, right);
        return leftRank < rightRank ? -1 : 1;
    }
    if (left.size() == right.size()) return 0;
    // What is left of the longer one may be a combining character, or characters that count last.
    return compareGenerally(left, right);
}

QByteArray collationVersion()
{
    return collator().version();
}

} // namespace jet
