#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// What the reading program tells its parent: records of a letter, the length of what follows in four
// bytes, lowest first, and that many bytes. Version 1.

namespace oldfile::stream {

inline constexpr char Format = 'F'; ///< One byte: the file's version as its header has it.
inline constexpr char Table = 'T';  ///< Four bytes: rows that the table states; its name in UTF-8.
/// Type, precision, scale, one byte each; four bytes: size in bytes; name in UTF-8. Of the last table.
inline constexpr char Column = 'C';
inline constexpr char Link = 'L'; ///< The name of a linked table, whose rows lie elsewhere.
/// For each column its length in four bytes, `Null` for NULL, and the bytes as they lie in the file, long
/// values put together; a truth value has one byte, 0 or 1.
inline constexpr char Row = 'R';
inline constexpr char End = 'Z';     ///< All has been read.
inline constexpr char Failure = 'E'; ///< What went wrong, in German; the last record.

inline constexpr std::uint32_t Null = 0xFFFFFFFF;

} // namespace oldfile::stream
