#include "platform/jet/value/Collation.h"

#include <unicode/ucol.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
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

/// The letters of a German text, one after another: what is no German letter and no ASCII is left to the
/// collator.
class Letters {
public:
    explicit Letters(std::string_view text) : m_text(text) { next(); }

    bool atEnd() const { return m_rank == 0; }
    bool isGerman() const { return m_isGerman; }       ///< So far, and up to the character behind this one.
    bool hasLastOnes() const { return m_hasLastOnes; } ///< Before this letter.
    int rank() const { return m_rank; }                ///< Of the letter, whatever stands on it.
    bool hasDots() const { return m_hasDots; }

    void next()
    {
        if (m_isSecondS) { // of ß
            m_isSecondS = false;
            return;
        }
        m_rank = 0;
        m_hasDots = false;
        while (m_at < m_text.size() && m_rank == 0 && m_isGerman)
            take(static_cast<unsigned char>(m_text[m_at]));
        if (m_at < m_text.size()) look(static_cast<unsigned char>(m_text[m_at]));
    }

private:
    void take(unsigned char byte)
    {
        if (byte < 0x80) {
            ++m_at;
            m_rank = collator().rank(static_cast<char>(byte));
            if (m_rank != 0) return;
            m_hasLastOnes = true;
            m_isGerman = countsLast(byte);
            return;
        }
        look(byte);
        if (!m_isGerman) return;
        const auto second = static_cast<unsigned char>(m_text[m_at + 1]);
        m_at += 2;
        m_isSecondS = second == SharpS;
        m_hasDots = !m_isSecondS;
        m_rank = collator().rank(plain(second));
    }

    /// Of two bytes the second one: "Ä" is C3 84.
    static constexpr unsigned char SharpS = 0x9F;
    static char plain(unsigned char second)
    {
        switch (second) {
        case 0x84:
        case 0xA4: return 'a';
        case 0x96:
        case 0xB6: return 'o';
        case 0x9C:
        case 0xBC: return 'u';
        case SharpS: return 's';
        default: return '\0';
        }
    }

    /// A combining character behind a letter belongs to it.
    void look(unsigned char byte)
    {
        if (byte < 0x80) return;
        const bool isPair = byte == 0xC3 && m_at + 1 < m_text.size();
        m_isGerman = m_isGerman && isPair && plain(static_cast<unsigned char>(m_text[m_at + 1])) != '\0';
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    int m_rank = 0;
    bool m_hasDots = false, m_isSecondS = false, m_isGerman = true, m_hasLastOnes = false;
};

/// Nothing where one of the texts is not German, or what counts last must decide.
std::optional<int> compareGerman(std::string_view left, std::string_view right)
{
    Letters leftOnes(left);
    Letters rightOnes(right);
    int dots = 0;
    for (;; leftOnes.next(), rightOnes.next()) {
        if (!leftOnes.isGerman() || !rightOnes.isGerman()) return {};
        if (leftOnes.rank() != rightOnes.rank()) return leftOnes.rank() < rightOnes.rank() ? -1 : 1;
        if (leftOnes.atEnd()) break;
        if (dots == 0) dots = int(leftOnes.hasDots()) - int(rightOnes.hasDots());
    }
    if (dots != 0) return dots;
    if (leftOnes.hasLastOnes() || rightOnes.hasLastOnes()) return {};
    return 0;
}

} // namespace

int compareTexts(std::string_view left, std::string_view right)
{
    // Most comparisons of a statement meet equal bytes, most others differ within plain ASCII.
    if (left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size()) == 0) return 0;
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    if (const auto order = compareGerman(left, right)) return *order;
    return compareGenerally(left, right);
}

QByteArray collationVersion()
{
    return collator().version();
}

} // namespace jet
