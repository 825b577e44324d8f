#include "platform/jet/sqlite/KeySorter.h"

#include "platform/jet/value/Collation.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <numeric>

namespace jet::sqlite {

namespace {

constexpr quint64 Sign = quint64{1} << 63;
constexpr quint64 Null = 0;                          // first of all
constexpr quint64 FirstText = 0xFFF0'0000'0000'0001; // behind infinity

/// A number whose order is that of the doubles.
quint64 codeOf(double number)
{
    const auto bits = std::bit_cast<quint64>(number == 0 ? 0.0 : number); // there is one zero
    return bits & Sign ? ~bits : bits | Sign;
}

struct Entry {
    quint64 code;
    quint32 row;
};

/// Byte by byte from the last one; a byte that all have is passed over.
void sortByCode(std::vector<Entry>& entries)
{
    std::vector<Entry> sorted(entries.size());
    for (int shift = 0; shift < 64; shift += 8) {
        const auto byteOf = [shift](const Entry& entry) { return (entry.code >> shift) & 0xFF; };
        std::array<std::size_t, 256> places{};
        for (const Entry& entry : entries)
            ++places[byteOf(entry)];
        if (places[byteOf(entries.front())] == entries.size()) continue;
        std::exclusive_scan(places.begin(), places.end(), places.begin(), std::size_t{0});
        for (const Entry& entry : entries)
            sorted[places[byteOf(entry)]++] = entry;
        entries.swap(sorted);
    }
}

/// Keeps the order of rows with the same code.
void sortBy(std::vector<quint32>& rows, const std::vector<quint64>& codes, bool descending)
{
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (const quint32 row : rows)
        entries.push_back({descending ? ~codes[row] : codes[row], row});
    sortByCode(entries);
    std::ranges::transform(entries, rows.begin(), &Entry::row);
}

} // namespace

KeySorter::KeySorter(const std::vector<Column>& columns, bool descending) : m_descending(descending)
{
    for (const Column column : columns)
        m_columns.push_back({column, {}, {}, nullptr});
}

bool KeySorter::take(const Statement::Run& row)
{
    constexpr qint64 Exact = qint64{1} << 53; // not each whole number above is a double
    m_keys.emplace_back(row.whole(0));
    int place = 0;
    for (Codes& codes : m_columns) {
        switch (row.kind(++place)) {
        case Statement::Kind::Null: codes.codes.push_back(Null); break;
        case Statement::Kind::Whole:
            if (std::abs(row.whole(place)) > Exact) return false;
            [[fallthrough]];
        case Statement::Kind::Real: codes.codes.push_back(codeOf(row.number(place))); break;
        case Statement::Kind::Text:
            if (!takeText(codes, row.view(place))) return false;
            break;
        case Statement::Kind::Bytes: return false;
        }
    }
    return true;
}

bool KeySorter::takeText(Codes& codes, std::string_view text)
{
    constexpr std::size_t Most = 100'000; // to be ranked, each compared with seventeen others
    if (!codes.last || codes.last->first != text) {
        auto found = codes.texts.find(text);
        if (found == codes.texts.end()) {
            if (codes.texts.size() == Most) return false;
            found = codes.texts.emplace(text, static_cast<quint32>(codes.texts.size())).first;
        }
        codes.last = &*found;
    }
    codes.codes.push_back(FirstText + codes.last->second);
    return true;
}

/// Puts the place in the order where the number of the text stood: the same for texts that are equal in it.
void KeySorter::rankTexts(Codes& codes)
{
    if (codes.texts.empty()) return;
    const auto order = [&codes](std::string_view left, std::string_view right) {
        return codes.column.german ? compareTexts(left, right) : left.compare(right);
    };
    std::vector<const Texts::value_type*> texts;
    for (const auto& text : codes.texts)
        texts.push_back(&text);
    std::ranges::sort(
        texts, [&](const auto* left, const auto* right) { return order(left->first, right->first) < 0; });
    std::vector<quint64> ranks(texts.size());
    quint64 rank = FirstText;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0 && order(texts[i - 1]->first, texts[i]->first) != 0) ++rank;
        ranks[texts[i]->second] = rank;
    }
    for (quint64& code : codes.codes)
        if (code >= FirstText) code = ranks[code - FirstText];
}

store::Keys KeySorter::sorted()
{
    if (m_keys.empty()) return {};
    std::vector<quint32> rows(m_keys.size());
    std::iota(rows.begin(), rows.end(), 0U);
    std::vector<quint64> keys;
    keys.reserve(m_keys.size());
    for (const store::Key key : m_keys)
        keys.push_back(static_cast<quint64>(key.bits()) ^ Sign);
    sortBy(rows, keys, m_descending);
    for (auto codes = m_columns.rbegin(); codes != m_columns.rend(); ++codes) {
        rankTexts(*codes);
        sortBy(rows, codes->codes, codes->column.descending);
    }
    store::Keys sorted;
    for (const quint32 row : rows)
        sorted.push_back(m_keys[row]);
    return sorted;
}

} // namespace jet::sqlite
