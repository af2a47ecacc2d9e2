// A separate process. It reads the database on standard input and writes the tables named in its arguments to standard
// output, as jetstream.h says. The file may be malicious, so the process gives up all other rights.
#include "platform/engine/jet/reader/limits.h"
#include "platform/engine/jet/reader/longvalue.h"
#include "platform/engine/jet/reader/output.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <unistd.h>
#include <vector>

namespace {
[[noreturn]] void RefuseDamaged(const MdbHandle& file)
{
    Refuse(file.f->db_key != 0 ? jetstream::Encoded : jetstream::Damaged);
}

const MdbColumn& ColumnAt(const MdbTableDef& table, std::size_t number)
{
    return *static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, number));
}

void SendDefinition(const MdbTableDef& table)
{
    Frame frame(jetstream::Table);
    frame.AddText(table.name);
    frame.AddNumber(table.num_cols, 2);
    for (std::size_t i = 0; i < table.num_cols; ++i) {
        const MdbColumn& column = ColumnAt(table, i);
        frame.AddNumber(static_cast<std::uint32_t>(column.col_type), 1);
        frame.AddNumber(static_cast<std::uint32_t>(column.col_size), 2);
        frame.AddText(column.name);
    }
    frame.Send();
}

// Passes the values of every row to the function. False if it can read fewer rows than the file counts.
template <typename Take>
bool EachRow(MdbHandle& file, MdbTableDef& table, Take&& take)
{
    std::array<MdbField, MDB_MAX_COLS> values = {};
    unsigned int rows = 0;
    mdb_rewind_table(&table);
    for (; mdb_fetch_row(&table); ++rows) {
        int start = 0;
        std::size_t size = 0;
        if (mdb_find_row(&file, static_cast<int>(table.cur_row) - 1, &start, &size) != 0 ||
            mdb_crack_row(&table, start & OffsetBits, size, values.data()) < 0)
            return false;
        take(std::span<const MdbField>(values.data(), table.num_cols));
    }
    return rows >= table.num_rows;
}

void SendRow(MdbHandle& file, const MdbTableDef& table, std::span<const MdbField> values)
{
    Frame frame(jetstream::Row);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int type = ColumnAt(table, i).col_type;
        if (type == jetstream::Boolean) {
            frame.AddText(std::string_view(values[i].is_null ? "\0" : "\1", 1)); // the null bit holds the value
            continue;
        }
        if (values[i].is_null) {
            frame.AddNull();
            continue;
        }
        const std::string_view bytes(static_cast<const char*>(values[i].value),
                                     values[i].siz > 0 ? static_cast<std::size_t>(values[i].siz) : 0);
        const auto whole = type == jetstream::Memo ? ReadLongValue(file, bytes) : std::string(bytes);
        if (!whole) RefuseDamaged(file);
        frame.AddText(*whole);
    }
    frame.Send();
}

MdbTableDef* Find(MdbHandle& file, char* name, int kind)
{
    MdbTableDef* table = mdb_read_table_by_name(&file, name, kind);
    if (table && (!mdb_read_columns(table) || table->num_cols > MDB_MAX_COLS || table->num_cols != table->columns->len))
        RefuseDamaged(file);
    return table;
}

// A table missing from a damaged catalog would pass for one that never existed. The library keeps the catalog in its
// handle.
void CheckCatalog(MdbHandle& file)
{
    std::array name = std::to_array("MSysObjects");
    MdbTableDef* catalog = Find(file, name.data(), MDB_ANY);
    if (!catalog || !EachRow(file, *catalog, [](auto) {}) || file.num_catalog < catalog->num_rows) RefuseDamaged(file);
    for (unsigned int i = 0; i < file.num_catalog; ++i)
        if (static_cast<const MdbCatalogEntry*>(g_ptr_array_index(file.catalog, i))->object_name[0] == '\0')
            RefuseDamaged(file);
}

// The library returns the same for a missing table and an unreadable one.
bool IsInCatalog(MdbHandle& file, const char* name)
{
    return mdb_read_catalog(&file, MDB_ANY) && mdb_get_catalogentry_by_name(&file, name);
}

void SendTable(MdbHandle& file, char* name)
{
    MdbTableDef* table = Find(file, name, MDB_TABLE);
    if (!table && IsInCatalog(file, name)) RefuseDamaged(file);
    if (!table) return;
    SendDefinition(*table);
    if (!EachRow(file, *table, [&](auto values) { SendRow(file, *table, values); })) RefuseDamaged(file);
}

// The head must still be the last page that was read.
bool HasPassword(const MdbHandle& file)
{
    constexpr std::size_t PasswordAt = 0x42, DateAt = 0x72, Jet3Size = 20, Jet4Size = 40;
    const unsigned char* const head = file.pg_buf;
    const bool isJet3 = file.f->jet_version == MDB_VER_JET3;
    std::array<unsigned char, 4> mask = {};
    if (!isJet3) {
        // Masked by the file's creation date.
        const double day = mdb_get_double(const_cast<unsigned char*>(head), DateAt);
        const auto whole = day > 0 && day < 1e9 ? static_cast<std::uint32_t>(day) : 0;
        for (std::size_t i = 0; i < mask.size(); ++i)
            mask[i] = static_cast<unsigned char>(whole >> 8 * i);
    }
    for (std::size_t i = 0; i < (isJet3 ? Jet3Size : Jet4Size); ++i)
        if (head[PasswordAt + i] != mask[i % mask.size()]) return true;
    return false;
}

MdbHandle& Open()
{
    struct stat status = {};
    if (::fstat(STDIN_FILENO, &status) != 0 || status.st_size <= 0) Refuse(jetstream::Unreadable);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (!LimitResources(size)) Refuse(jetstream::Unprotected);
    void* bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0);
    if (bytes == MAP_FAILED) Refuse(jetstream::Unreadable);
    // The library loads its character tables here, and reads only the head of the file.
    MdbHandle* file = mdb_open_buffer(bytes, size, MDB_NOFLAGS);
    if (!file || file->f->jet_version > MDB_VER_JET4) Refuse(jetstream::Unreadable);
    // The engine writes whole pages, so this file was cut.
    if (size % static_cast<std::size_t>(file->fmt->pg_size) != 0) Refuse(jetstream::Damaged);
    if (!GiveUpTheSystem()) Refuse(jetstream::Unprotected);
    return *file;
}
} // namespace

int main(int count, char** words)
{
    MdbHandle& file = Open();
    if (HasPassword(file)) Refuse(jetstream::Password);
    Frame head(jetstream::Head);
    head.AddNumber(file.f->jet_version, 1);
    head.AddNumber(file.f->code_page, 2);
    head.Send();
    CheckCatalog(file);
    for (char* name : std::span(words, static_cast<std::size_t>(count)).subspan(1))
        SendTable(file, name);
    Frame(jetstream::End).Send();
    ::_exit(EXIT_SUCCESS); // frees the library's memory
}
