/// Reads an Access file for another program. The library that reads it trusts what it finds, so a damaged
/// file may end or stall the process that reads it: this one, which holds nothing but the file.
///
///     tadata-access FILE            the tables
///     tadata-access FILE TABLE...   the tables named, each with its rows

#include "exchange/access_stream.h"

// The library's header includes this one as if it were C.
#include <glib.h>

#include <mdbtools.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

/// What is wrong with the file, as far as this program sees it.
class Damage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct CloseFile {
    void operator()(MdbHandle* file) const { mdb_close(file); }
};
struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
struct FreeText {
    void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, FreeText>;
using File = std::unique_ptr<MdbHandle, CloseFile>;

void Put(char message) {
    std::fputc(message, stdout);
}

void PutLength(std::uint32_t length) {
    for (int shift = 0; shift < 32; shift += 8)
        std::fputc(static_cast<int>(length >> shift & 0xFF), stdout);
}

void PutText(std::string_view text) {
    if (text.size() >= AccessStream::LongestText)
        throw Damage("a text is too long");
    PutLength(static_cast<std::uint32_t>(text.size()));
    std::fwrite(text.data(), 1, text.size(), stdout);
}

/// The shortest digits that read back as the number: a single 9.15 is "9.15", not the double next to it.
template<class Number>
void PutNumber(Number number) {
    std::array<char, 512> digits{};
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(number))
            throw Damage("a number is none");
        const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed).ptr;
        PutText({digits.data(), end});
    } else {
        PutText({digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr});
    }
}

/// Four decimals, stored as a whole number.
void PutMoney(std::int64_t units) {
    constexpr std::uint64_t one = 10000;
    const std::uint64_t size =
        units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
    std::string text(units < 0 ? "-" : "");
    text += std::to_string(size / one);
    if (size % one != 0) {
        std::string decimals = std::to_string(one + size % one);
        decimals.front() = '.';
        text += decimals;
    }
    PutText(text);
}

/// Days since 30 December 1899; the fraction is the time of day, also before that day.
void PutMoment(double serial) {
    constexpr double firstDay = -657434; // of the year 100
    constexpr double lastDay = 2958466;  // after the year 9999
    if (!(serial >= firstDay && serial < lastDay))
        throw Damage("a date is none");
    using namespace std::chrono;
    const double whole = std::trunc(serial);
    const seconds moment =
        days{static_cast<int>(whole)} + seconds{std::lround(std::abs(serial - whole) * 86400)};
    const local_seconds time = local_days{year{1899} / December / day{30}} + moment;
    const local_days date = floor<days>(time);
    const year_month_day ymd{date};
    const hh_mm_ss clock{time - date};
    std::array<char, 64> text{};
    const int size =
        std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(ymd.year()),
                      static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()),
                      static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                      static_cast<int>(clock.seconds().count()));
    PutText({text.data(), static_cast<size_t>(size)});
}

std::int64_t LittleEndian(const unsigned char* bytes) {
    std::uint64_t value = 0;
    for (int i = 7; i >= 0; --i)
        value = value << 8 | bytes[i];
    return static_cast<std::int64_t>(value);
}

bool IsTold(int type) {
    switch (type) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_TEXT:
    case MDB_MEMO:
    case MDB_NUMERIC:
        return true;
    default:
        return false;
    }
}

/// The value of a column in the row that was just read. Where the value stands has not been looked at: it is
/// what the file says.
void PutValue(MdbHandle* file, const MdbColumn& column) {
    if (column.col_type == MDB_BOOL) // its length says whether it is missing, which is how False is stored
        return PutText(column.cur_value_len ? "0" : "1");
    if (column.cur_value_len == 0 || !IsTold(column.col_type))
        return PutLength(AccessStream::Null);
    const int start = column.cur_value_start;
    const int size = column.cur_value_len;
    const int least = column.col_type == MDB_TEXT || column.col_type == MDB_MEMO
                          ? size
                          : mdb_col_fixed_size(const_cast<MdbColumn*>(&column));
    if (start < 0 || size < 0 || start + std::max(size, least) > file->fmt->pg_size)
        throw Damage("a value lies outside of its page");
    switch (column.col_type) {
    case MDB_BYTE:
        return PutNumber(static_cast<int>(mdb_pg_get_byte(file, start)));
    case MDB_INT:
        return PutNumber(static_cast<int>(static_cast<std::int16_t>(mdb_pg_get_int16(file, start))));
    case MDB_LONGINT:
        return PutNumber(static_cast<std::int32_t>(mdb_pg_get_int32(file, start)));
    case MDB_MONEY:
        return PutMoney(LittleEndian(file->pg_buf + start));
    case MDB_FLOAT:
        return PutNumber(mdb_pg_get_single(file, start));
    case MDB_DOUBLE:
        return PutNumber(mdb_pg_get_double(file, start));
    case MDB_DATETIME:
        return PutMoment(mdb_pg_get_double(file, start));
    case MDB_NUMERIC:
        return PutText(Text(mdb_numeric_to_string(file, start, column.col_scale, column.col_prec)).get());
    default: {
        const Text text(mdb_col_to_string(file, file->pg_buf, start, column.col_type, size));
        if (!text || std::strlen(text.get()) + 8 > file->bind_size)
            throw Damage("a text is too long");
        return PutText(text.get());
    }
    }
}

std::span<MdbColumn* const> ColumnsOf(const MdbTableDef& table) {
    return {reinterpret_cast<MdbColumn* const*>(table.columns->pdata), table.columns->len};
}

void PutTable(const MdbCatalogEntry& entry, const MdbTableDef& table) {
    Put(AccessStream::Table);
    PutText(entry.object_name);
    PutNumber(table.num_rows);
    PutNumber(table.columns->len);
    for (const MdbColumn* column : ColumnsOf(table))
        PutText(std::string(1, IsTold(column->col_type) ? AccessStream::Told : AccessStream::Untold)
                + column->name);
}

void PutRows(MdbHandle* file, MdbTableDef& table) {
    // Only memos may be long, and every text takes the room of the longest one while it is read.
    const bool hasMemo = std::ranges::any_of(
        ColumnsOf(table), [](const MdbColumn* column) { return column->col_type == MDB_MEMO; });
    mdb_set_bind_size(file, hasMemo ? AccessStream::LongestText : MDB_BIND_SIZE);
    mdb_rewind_table(&table);
    unsigned rows = 0;
    for (; mdb_fetch_row(&table) != 0; ++rows) {
        if (rows == table.num_rows)
            throw Damage("the table " + std::string(table.name) + " holds more rows than it says");
        Put(AccessStream::Row);
        for (const MdbColumn* column : ColumnsOf(table))
            PutValue(file, *column);
    }
    if (rows != table.num_rows)
        throw Damage("of the " + std::to_string(table.num_rows) + " rows of " + table.name + " only "
                     + std::to_string(rows) + " can be read");
}

/// The password is written into the file's first page.
bool HasPassword(const MdbHandle& file) {
    if (file.f->jet_version == MDB_VER_JET3)
        return std::ranges::any_of(file.f->db_passwd, [](char c) { return c != 0; });
    if (file.f->jet_version > MDB_VER_JET4)
        return file.f->db_key != 0;
    constexpr size_t password = 0x42;
    constexpr size_t passwordSize = 40;
    constexpr size_t dayOfMaking = 0x72;
    double day = 0;
    std::memcpy(&day, file.pg_buf + dayOfMaking, sizeof day);
    // The password is hidden by the day on which the file was made.
    const auto mask = std::abs(day) < 1e9 ? static_cast<std::uint32_t>(static_cast<std::int32_t>(day)) : 0;
    for (size_t i = 0; i < passwordSize; ++i) {
        if (file.pg_buf[password + i] != (mask >> (i % 4 * 8) & 0xFF))
            return true;
    }
    return false;
}

void Read(const char* path, std::span<char*> wanted) {
    const File file(mdb_open(path, MDB_NOFLAGS));
    // The library leaves the file's first page in its buffer, and takes an empty file for one.
    constexpr std::string_view signature = "Standard ";
    if (!file || std::memcmp(file->pg_buf + 4, signature.data(), signature.size()) != 0)
        return Put(AccessStream::Foreign);
    if (HasPassword(*file))
        return Put(AccessStream::Protected);
    const GPtrArray* catalog = mdb_read_catalog(file.get(), MDB_ANY);
    if (!catalog || catalog->len == 0)
        throw Damage("its list of tables cannot be read");
    for (guint i = 0; i < catalog->len; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(catalog->pdata[i]);
        if (wanted.empty() && entry->object_type == MDB_LINKED_TABLE) {
            Put(AccessStream::Linked);
            PutText(entry->object_name);
        }
        if (!mdb_is_user_table(entry)
            || (!wanted.empty()
                && std::ranges::find(wanted, std::string_view(entry->object_name)) == wanted.end()))
            continue;
        const std::unique_ptr<MdbTableDef, FreeTable> table(mdb_read_table(entry));
        if (!table || !mdb_read_columns(table.get()) || table->columns->len == 0)
            throw Damage("the table " + std::string(entry->object_name) + " cannot be read");
        PutTable(*entry, *table);
        if (!wanted.empty())
            PutRows(file.get(), *table);
    }
    Put(AccessStream::Complete);
}

/// A damaged file may ask for any amount of memory.
void LimitMemory() {
#ifndef __SANITIZE_ADDRESS__
    constexpr rlim_t most = 1 << 30;
    const rlimit limit{most, most};
    setrlimit(RLIMIT_AS, &limit);
#endif
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    LimitMemory();
    // Neither changes the texts of a file: they come in the file's own character set and go out in UTF-8.
    for (const char* setting : {"MDBICONV", "MDB_JET3_CHARSET", "MDBOPTS"})
        unsetenv(setting);
    try {
        Read(argv[1], std::span(argv, static_cast<size_t>(argc)).subspan(2));
    } catch (const std::exception& damage) {
        Put(AccessStream::Damaged);
        PutText(damage.what());
    }
    return std::fflush(stdout) == 0 ? 0 : 2;
}
