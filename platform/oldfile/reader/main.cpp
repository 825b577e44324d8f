// Reads a database file of the old format with a library that was not made for hostile files, so in a
// process of its own: whatever becomes of it, its parent lives.
//
//     zablager-altleser FILE           the tables and their columns
//     zablager-altleser FILE TABLE     the rows of one
//
// It writes the records of Stream.h and ends with 0; with 1 after a record that tells an error.
#include "platform/oldfile/reader/Stream.h"

#include <mdbtools.h>

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace oldfile;

constexpr int OffsetMask = 0x1FFF;   // of a row's place in its page; above it flags
constexpr int Deleted = 0x4000;      // also a row that lies in another page and is read there
constexpr std::size_t LongHead = 12; // bytes of a long value's head in its row
constexpr std::uint32_t Inline = 0x80000000, OnePage = 0x40000000, LengthBits = 0x3FFFFFFF;
constexpr std::size_t LongestValue = 256U << 20; // bytes

struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void write(char kind, const std::string& content)
{
    const auto length = static_cast<std::uint32_t>(content.size());
    std::fputc(kind, stdout);
    for (int shift = 0; shift < 32; shift += 8)
        std::fputc(static_cast<int>(length >> shift & 0xFF), stdout);
    std::fwrite(content.data(), 1, content.size(), stdout);
}

void append(std::string& target, std::uint32_t number)
{
    for (int shift = 0; shift < 32; shift += 8)
        target += static_cast<char>(number >> shift & 0xFF);
}

struct Closer {
    void operator()(MdbHandle* file) const { mdb_close(file); }
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using File = std::unique_ptr<MdbHandle, Closer>;
using Table = std::unique_ptr<MdbTableDef, Closer>;

std::size_t pageSize(const MdbHandle& file)
{
    return static_cast<std::size_t>(file.fmt->pg_size);
}

/// The bytes of a value's piece that lies in another page.
std::string_view piece(MdbHandle& file, std::uint32_t place)
{
    void* page = nullptr;
    int start = 0;
    std::size_t length = 0;
    if (mdb_find_pg_row(&file, static_cast<int>(place), &page, &start, &length) != 0)
        throw Failure("Ein langer Text oder ein Objekt ist nicht ganz da.");
    const auto begin = static_cast<std::size_t>(start & OffsetMask);
    if (begin + length > pageSize(file)) throw Failure("Ein langer Text oder ein Objekt ist beschädigt.");
    return {static_cast<const char*>(page) + begin, length};
}

std::uint32_t number32(std::string_view bytes)
{
    std::uint32_t number = 0;
    for (std::size_t shift = 0; shift < 4; ++shift)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[shift])) << 8 * shift;
    return number;
}

/// A memo or an object: in its row, in one other page, or in a chain of pieces.
std::string longValue(MdbHandle& file, std::string_view field)
{
    if (field.size() < LongHead) return {};
    const std::uint32_t head = number32(field);
    if ((head & Inline) != 0) return std::string(field.substr(LongHead));
    const std::size_t length = head & LengthBits;
    std::uint32_t place = number32(field.substr(4));
    if (length > LongestValue) throw Failure("Ein langer Text oder ein Objekt ist beschädigt.");
    if ((head & OnePage) != 0) return std::string(piece(file, place).substr(0, length));
    std::string value;
    while (place != 0 && value.size() < length) {
        const auto bytes = piece(file, place);
        if (bytes.size() <= 4) throw Failure("Ein langer Text oder ein Objekt ist beschädigt.");
        place = number32(bytes);
        value += bytes.substr(4);
    }
    if (value.size() < length) throw Failure("Ein langer Text oder ein Objekt ist nicht ganz da.");
    value.resize(length);
    return value;
}

MdbColumn& column(const MdbTableDef& table, unsigned int index)
{
    return *static_cast<MdbColumn*>(g_ptr_array_index(table.columns, index));
}

void appendField(std::string& row, MdbHandle& file, const MdbColumn& column, const MdbField& field)
{
    if (column.col_type == MDB_BOOL) { // its value is the bit that tells NULL of others
        append(row, 1);
        row += field.is_null ? '\0' : '\1';
        return;
    }
    if (field.is_null) return append(row, stream::Null);
    const auto start = static_cast<std::size_t>(field.start), length = static_cast<std::size_t>(field.siz);
    if (field.start < 0 || field.siz < 0 || start + length > pageSize(file))
        throw Failure("Eine Zeile ist beschädigt.");
    const std::string_view bytes(reinterpret_cast<const char*>(file.pg_buf) + start, length);
    const bool isLong = column.col_type == MDB_MEMO || column.col_type == MDB_OLE;
    const std::string value = isLong ? longValue(file, bytes) : std::string(bytes);
    append(row, static_cast<std::uint32_t>(value.size()));
    row += value;
}

/// \returns whether there was a row that lives.
bool writeRow(MdbTableDef& table, unsigned int slot)
{
    MdbHandle& file = *table.entry->mdb;
    int start = 0;
    std::size_t length = 0;
    if (mdb_find_row(&file, static_cast<int>(slot), &start, &length) != 0 || length == 0) return false;
    if ((start & Deleted) != 0) return false;
    std::vector<MdbField> fields(table.num_cols + 1);
    // Its answer is the number of columns that the row was written with; those added later are NULL in it.
    if (mdb_crack_row(&table, start & OffsetMask, length, fields.data()) < 0)
        throw Failure("Eine Zeile ist beschädigt.");
    std::vector<const MdbField*> byColumn(table.num_cols);
    for (unsigned int i = 0; i < table.num_cols; ++i)
        if (const int column = fields[i].colnum; column >= 0 && column < static_cast<int>(table.num_cols))
            byColumn[static_cast<std::size_t>(column)] = &fields[i];
    std::string row;
    for (unsigned int i = 0; i < table.num_cols; ++i) {
        if (!byColumn[i]) throw Failure("Eine Zeile ist beschädigt.");
        appendField(row, file, column(table, i), *byColumn[i]);
    }
    write(stream::Row, row);
    return true;
}

void writeRows(MdbTableDef& table)
{
    MdbHandle& file = *table.entry->mdb;
    unsigned int read = 0;
    mdb_rewind_table(&table);
    while (mdb_read_next_dpg(&table) != 0) {
        const auto page = table.cur_phys_pg;
        const int rows = mdb_get_int16(file.pg_buf, file.fmt->row_count_offset);
        for (int slot = 0; slot < rows; ++slot) {
            if (writeRow(table, static_cast<unsigned int>(slot))) ++read;
            if (read > table.num_rows) break;
        }
        table.cur_phys_pg = page;
    }
    if (read != table.num_rows)
        throw Failure("Die Tabelle nennt " + std::to_string(table.num_rows) + " Zeilen, zu lesen sind " +
                      std::to_string(read) + (read > table.num_rows ? " oder mehr." : "."));
}

Table open(MdbCatalogEntry& entry)
{
    Table table(mdb_read_table(&entry));
    if (!table || !mdb_read_columns(table.get()) || table->columns->len != table->num_cols)
        throw Failure(std::string("Die Tabelle '") + entry.object_name + "' ist beschädigt.");
    return table;
}

void writeColumns(const MdbTableDef& table)
{
    for (unsigned int i = 0; i < table.num_cols; ++i) {
        const MdbColumn& one = column(table, i);
        std::string content; // the library has precision and scale the other way round
        for (const int number : {one.col_type, one.col_scale, one.col_prec})
            content += static_cast<char>(number);
        append(content, static_cast<std::uint32_t>(one.col_size));
        if (*one.name == '\0') throw Failure(std::string("Die Tabelle '") + table.name + "' ist beschädigt.");
        write(stream::Column, content + one.name);
    }
}

/// The list of all objects is a table itself; one that cannot be read to its end must not pass for a short
/// one.
void checkCatalog(MdbHandle& file)
{
    MdbCatalogEntry entry{};
    entry.mdb = &file;
    entry.object_type = MDB_TABLE;
    entry.table_pg = 2;
    std::strcpy(entry.object_name, "MSysObjects");
    const Table objects = open(entry);
    if (objects->num_rows != file.catalog->len)
        throw Failure("Das Verzeichnis der Tabellen ist nicht ganz zu lesen.");
}

void writeTables(MdbHandle& file)
{
    write(stream::Format, std::string(1, static_cast<char>(file.f->jet_version)));
    for (unsigned int i = 0; i < file.catalog->len; ++i) {
        auto& entry = *static_cast<MdbCatalogEntry*>(g_ptr_array_index(file.catalog, i));
        if (entry.object_type == MDB_LINKED_TABLE) write(stream::Link, entry.object_name);
        if (!mdb_is_user_table(&entry)) continue;
        const Table table = open(entry);
        std::string content;
        append(content, table->num_rows);
        write(stream::Table, content + entry.object_name);
        writeColumns(*table);
    }
}

MdbCatalogEntry& entryOf(MdbHandle& file, const std::string& name)
{
    for (unsigned int i = 0; i < file.catalog->len; ++i) {
        auto& entry = *static_cast<MdbCatalogEntry*>(g_ptr_array_index(file.catalog, i));
        if (mdb_is_user_table(&entry) && name == entry.object_name) return entry;
    }
    throw Failure("Die Tabelle '" + name + "' fehlt.");
}

/// Nothing of the surroundings changes what is read, and a damaged length cannot take all memory.
void confine(const char* path)
{
    for (const char* name : {"MDBICONV", "MDB_JET3_CHARSET", "MDBOPTS", "MDBPATH"})
        unsetenv(name);
#ifndef ZABLAGER_SANITIZE
    constexpr rlim_t Base = 512U << 20; // bytes
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    const rlim_t limit = Base + (error ? 0 : size);
    const rlimit memory{limit, limit};
    setrlimit(RLIMIT_AS, &memory);
#else
    static_cast<void>(path);
#endif
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 3) return 2;
    try {
        confine(argv[1]);
        const File file(mdb_open(argv[1], MDB_NOFLAGS));
        if (!file || !mdb_read_catalog(file.get(), MDB_ANY)) throw Failure("Sie lässt sich nicht lesen.");
        checkCatalog(*file);
        if (argc == 2)
            writeTables(*file);
        else
            writeRows(*open(entryOf(*file, argv[2])));
        write(stream::End, {});
    } catch (const std::exception& error) {
        write(stream::Failure, error.what());
        return 1;
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
