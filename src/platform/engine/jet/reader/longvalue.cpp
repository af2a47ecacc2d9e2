#include "platform/engine/jet/reader/longvalue.h"

#include <cstring>

namespace {
constexpr std::uint32_t InRow = 0x80000000, OnOnePage = 0x40000000, LengthBits = 0x3FFFFFFF;
constexpr std::size_t LinkSize = 4;
constexpr std::string_view PageMark = "LVAL"; // other pages have their table's number here
constexpr std::size_t PageMarkAt = 4;

std::uint32_t NumberAt(std::string_view bytes, std::size_t at)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << 8 * i;
    return number;
}

// A row of a long value page, valid until the next call. Empty if there is none.
std::string_view PieceAt(MdbHandle& file, std::uint32_t place)
{
    void* buffer = nullptr;
    int offset = 0;
    std::size_t size = 0;
    if (mdb_find_pg_row(&file, static_cast<int>(place), &buffer, &offset, &size) != 0) return {};
    const std::string_view page(static_cast<const char*>(buffer), static_cast<std::size_t>(file.fmt->pg_size));
    const auto start = static_cast<std::size_t>(offset & OffsetBits);
    if (page.substr(PageMarkAt, PageMark.size()) != PageMark || start > page.size() || size > page.size() - start)
        return {};
    return page.substr(start, size);
}

std::optional<std::string> ReadChain(MdbHandle& file, std::uint32_t place, std::size_t length)
{
    std::string text;
    while (place != 0 && text.size() < length) {
        const std::string_view piece = PieceAt(file, place);
        if (piece.size() <= LinkSize) return {};
        place = NumberAt(piece, 0);
        text += piece.substr(LinkSize);
    }
    return text;
}
} // namespace

std::optional<std::string> ReadLongValue(MdbHandle& file, std::string_view inRow)
{
    if (inRow.empty()) return std::string();
    if (inRow.size() < MDB_MEMO_OVERHEAD) return {};
    const std::uint32_t head = NumberAt(inRow, 0), place = NumberAt(inRow, LinkSize);
    const std::size_t length = head & LengthBits;
    std::optional<std::string> text;
    if (head & InRow)
        text = std::string(inRow.substr(MDB_MEMO_OVERHEAD));
    else if (head & OnOnePage)
        text = std::string(PieceAt(file, place));
    else
        text = ReadChain(file, place, length);
    return text && text->size() == length ? text : std::nullopt;
}
