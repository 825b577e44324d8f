#pragma once

#include "platform/jet/sqlite/Statement.h"
#include "platform/jet/store/Key.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jet::sqlite {

/// Puts rows in an order that no index has. SQLite's sorter would carry whole records about and compare
/// two German texts twenty times a row; here each different text is ranked once, and numbers are sorted.
class KeySorter {
public:
    struct Column {
        bool german = false; ///< Its texts stand in German order; others by their bytes.
        bool descending = false;
    };

    /// \param columns what counts first before what counts next. \param descending the order of rows that
    /// are equal in all of them: by their keys.
    KeySorter(const std::vector<Column>& columns, bool descending);

    /// Takes a row: its key and behind it the columns. \returns whether it can be sorted here. Not: a
    /// number that is no double, more different texts than pay.
    bool take(const Statement::Run& row);
    store::Keys sorted();

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    using Texts = std::unordered_map<std::string, quint32, Hash, std::equal_to<>>;

    /// What the rows have in a column, as numbers that stand in its order.
    struct Codes {
        Column column;
        std::vector<quint64> codes;
        Texts texts;                             // by the number of each
        const Texts::value_type* last = nullptr; // neighbours often have the same
    };

    static bool takeText(Codes& codes, std::string_view text);
    static void rankTexts(Codes& codes);

    std::vector<Codes> m_columns;
    bool m_descending;
    store::Keys m_keys;
};

} // namespace jet::sqlite
