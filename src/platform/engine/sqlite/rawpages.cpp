#include "platform/engine/sqlite/rawpages.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <unordered_set>

namespace {
constexpr QByteArrayView magic("SQLite format 3\0", 16);
constexpr qsizetype HeadSize = 100; // of the file's head, on its first page
constexpr quint32 LeastUsable = 480;

// Takes a number of one to nine bytes off the front of the view.
std::optional<quint64> TakeNumber(QByteArrayView& bytes)
{
    quint64 number = 0;
    for (qsizetype i = 0; i < std::min<qsizetype>(bytes.size(), 9); ++i) {
        const auto byte = static_cast<quint8>(bytes[i]);
        number = i == 8 ? number << 8 | byte : number << 7 | (byte & 0x7f);
        if (byte < 0x80 || i == 8) {
            bytes = bytes.sliced(i + 1);
            return number;
        }
    }
    return std::nullopt;
}

quint32 Short(QByteArrayView page, qsizetype at)
{
    return qFromBigEndian<quint16>(page.data() + at);
}

// Where the page's own head begins. The file's head precedes it on page 1.
qsizetype HeadOf(quint32 page)
{
    return page == 1 ? HeadSize : 0;
}

// The size of a column of this type in bytes. None if the format has no such type.
std::optional<quint64> SizeOf(quint64 type)
{
    static constexpr quint8 Sizes[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    if (type < std::size(Sizes)) return Sizes[type];
    if (type < 12) return std::nullopt;
    return (type - 12) / 2;
}

qint64 Signed(QByteArrayView bytes)
{
    qint64 number = static_cast<qint8>(bytes[0]);
    for (const char byte : bytes.sliced(1))
        number = static_cast<qint64>(static_cast<quint64>(number) << 8 | static_cast<quint8>(byte));
    return number;
}

RawValue ValueOf(quint64 type, QByteArrayView bytes)
{
    if (type == 0) return {};
    if (type == 7) return std::bit_cast<double>(Signed(bytes));
    if (type < 7) return Signed(bytes);
    if (type < 12) return qint64(type - 8);
    return bytes.toByteArray();
}

// A cut text without the incomplete character at its end.
QByteArray Cut(QByteArrayView bytes)
{
    for (qsizetype back = 1; back <= std::min<qsizetype>(bytes.size(), 3); ++back) {
        const auto byte = static_cast<quint8>(bytes[bytes.size() - back]);
        if (byte < 0x80) break;
        if (byte < 0xc0) continue;
        const qsizetype length = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : 2;
        if (back < length) return bytes.chopped(back).toByteArray();
        break;
    }
    return bytes.toByteArray();
}

bool IsBlank(QByteArrayView page)
{
    return std::ranges::all_of(page, [](char byte) { return byte == '\0'; });
}
} // namespace

RawPages::RawPages(QByteArrayView bytes, quint32 pageSize, quint32 reserved)
    : m_bytes(bytes), m_pageSize(pageSize), m_usable(pageSize - reserved),
      m_count(static_cast<quint32>(std::min<qsizetype>(bytes.size() / pageSize, 0xfffffffe)))
{
}

std::optional<RawPages> RawPages::ByHead(QByteArrayView bytes)
{
    if (bytes.size() < HeadSize || !bytes.startsWith(magic)) return std::nullopt;
    const quint32 told = Short(bytes, 16);
    const quint32 pageSize = told == 1 ? 65536 : told, reserved = static_cast<quint8>(bytes[20]);
    if (pageSize < 512 || !std::has_single_bit(pageSize) || pageSize - reserved < LeastUsable) return std::nullopt;
    RawPages pages(bytes, pageSize, reserved);
    pages.m_countOnce = qFromBigEndian<quint32>(bytes.data() + 28);
    return pages;
}

QByteArrayView RawPages::Page(quint32 page) const
{
    return m_bytes.sliced(qsizetype{page - 1} * m_pageSize, m_usable);
}

quint32 RawPages::Long(quint32 page, qsizetype at) const
{
    return qFromBigEndian<quint32>(Page(page).data() + at);
}

quint8 RawPages::TypeOf(quint32 page) const
{
    return static_cast<quint8>(Page(page)[HeadOf(page)]);
}

RawPages::Cells RawPages::LeafCells(quint32 number) const
{
    const QByteArrayView page = Page(number);
    const qsizetype head = HeadOf(number), first = head + 8;
    const qsizetype told = Short(page, head + 3), room = (page.size() - first) / 2;
    Cells cells = {{}, told <= room};
    std::vector<bool> seen(static_cast<std::size_t>(page.size()));
    for (qsizetype i = 0; i < std::min(told, room); ++i) {
        const qsizetype at = Short(page, first + 2 * i);
        const bool inside = at >= first + 2 * std::min(told, room) && at < page.size();
        const auto cell = inside && !seen[static_cast<std::size_t>(at)] ? CellAt(page, at) : std::nullopt;
        if (inside) seen[static_cast<std::size_t>(at)] = true;
        if (cell) cells.whole.push_back(*cell);
        if (!cell) cells.complete = false;
    }
    return cells;
}

std::optional<RawPages::Cell> RawPages::CellAt(QByteArrayView page, qsizetype at) const
{
    QByteArrayView rest = page.sliced(at);
    const auto size = TakeNumber(rest);
    const auto id = size ? TakeNumber(rest) : std::nullopt;
    if (!id || *size > static_cast<quint64>(m_bytes.size()) || *size == 0) return std::nullopt;
    // The format defines how much of a record stays in its page.
    const quint64 most = m_usable - 35, least = (m_usable - 12) * 32 / 255 - 23;
    const quint64 surplus = least + (*size - std::min(*size, least)) % (m_usable - 4);
    const quint64 local = *size <= most ? *size : surplus <= most ? surplus : least;
    const quint64 taken = local + (local < *size ? 4 : 0);
    if (taken > static_cast<quint64>(rest.size())) return std::nullopt;
    const auto localSize = static_cast<qsizetype>(local);
    const quint32 overflow = local < *size ? qFromBigEndian<quint32>(rest.data() + localSize) : 0;
    return Cell{*size, static_cast<qint64>(*id), rest.first(localSize), overflow};
}

RawPages::Children RawPages::ChildrenOf(quint32 number) const
{
    const QByteArrayView page = Page(number);
    const qsizetype head = HeadOf(number), first = head + 12;
    const qsizetype told = Short(page, head + 3), room = (page.size() - first) / 2;
    Children children = {{}, told <= room};
    const auto add = [&](quint32 child) {
        if (Contains(child)) children.pages.push_back(child);
        if (!Contains(child)) children.complete = false;
    };
    for (qsizetype i = 0; i < std::min(told, room); ++i) {
        const qsizetype at = Short(page, first + 2 * i);
        add(at <= page.size() - 4 ? Long(number, at) : 0);
    }
    add(Long(number, head + 8));
    return children;
}

std::optional<std::vector<quint32>> RawPages::FreePages() const
{
    if (m_count == 0) return std::nullopt;
    std::vector<quint32> pages;
    std::vector<bool> seen(m_count + std::size_t{1});
    quint64 lost = 0; // listed pages behind the end of a cut file
    for (quint32 trunk = Long(1, 32); trunk != 0; trunk = Long(trunk, 0)) {
        std::vector<quint32> group = {trunk};
        const bool isTrunk = trunk >= 2 && Contains(trunk) && !seen[trunk];
        const quint32 leaves = isTrunk ? Long(trunk, 4) : 0;
        if (!isTrunk || leaves > m_usable / 4 - 2) return pages;
        for (quint32 i = 0; i < leaves; ++i)
            group.push_back(Long(trunk, 8 + 4 * qsizetype{i}));
        lost += static_cast<quint64>(std::erase_if(group, [&](quint32 page) { return page > m_count; }));
        for (const quint32 page : group) {
            if (page < 2 || seen[page]) return std::nullopt;
            seen[page] = true;
        }
        pages.insert(pages.end(), group.begin(), group.end());
    }
    return pages.size() + lost == Long(1, 36) ? std::optional(pages) : std::nullopt;
}

// The record's head must lie in the page, since a planner's records have few columns.
std::vector<quint64> RawPages::ColumnTypes(const Cell& cell)
{
    QByteArrayView rest = cell.local;
    const auto headEnd = TakeNumber(rest);
    if (!headEnd || *headEnd > static_cast<quint64>(cell.local.size())) return {};
    const qsizetype before = cell.local.size() - rest.size();
    if (static_cast<qsizetype>(*headEnd) < before) return {};
    QByteArrayView head = rest.first(static_cast<qsizetype>(*headEnd) - before);
    std::vector<quint64> types;
    quint64 size = *headEnd;
    while (!head.isEmpty()) {
        const auto type = TakeNumber(head);
        const auto bytes = type ? SizeOf(*type) : std::nullopt;
        if (!bytes || *bytes > cell.size - size) return {};
        size += *bytes;
        types.push_back(*type);
    }
    if (size != cell.size) return {};
    return types;
}

RawPages::Rest RawPages::RestOf(const Cell& cell, const Uses& uses, Use most) const
{
    Rest rest = {{}, 0, true};
    auto missing = static_cast<qsizetype>(cell.size) - cell.local.size();
    std::unordered_set<quint32> own;
    const auto isFree = [&](quint32 page) {
        return page >= 2 && Contains(page) && uses.of[page] <= most && !own.contains(page);
    };
    for (quint32 page = cell.overflow; missing > 0; page = Long(page, 0)) {
        rest.complete = isFree(page);
        if (!rest.complete) return rest;
        own.insert(page);
        const quint32 next = Long(page, 0);
        const qsizetype size = std::min<qsizetype>(missing, m_usable - 4);
        // A page with an invalid link has been overwritten, contents included. But the last page left of a cut file is
        // good: its link was valid once.
        const bool goesOn = isFree(next) || (next > m_count && next <= m_countOnce);
        rest.complete = !IsBlank(Page(page)) && (size == missing ? next == 0 : goesOn);
        if (!rest.complete) return rest;
        rest.pages.push_back(page);
        rest.size += size;
        missing -= size;
    }
    return rest;
}

// The length of the chain in pages. Endless if it has no end, for example because it is a circle.
quint32 RawPages::ChainFrom(quint32 first, Uses& uses) const
{
    const auto exists = [this](quint32 page) { return page >= 2 && Contains(page); };
    std::vector<quint32> passed;
    quint32 page = first;
    for (; exists(page) && uses.chains[page] == Unknown; page = Long(page, 0)) {
        uses.chains[page] = Endless;
        if (IsBlank(Page(page))) break;
        passed.push_back(page);
    }
    quint32 length = page == 0 ? 0 : exists(page) ? uses.chains[page] : Endless;
    for (auto before = passed.rbegin(); before != passed.rend(); ++before)
        uses.chains[*before] = length = length == Endless ? Endless : length + 1;
    return length;
}

// A chain that reaches a taken page counts as endless, because pages are never given back.
bool RawPages::IsComplete(const Cell& cell, Uses& uses) const
{
    const quint64 missing = cell.size - static_cast<quint64>(cell.local.size()), room = m_usable - 4;
    if (missing == 0) return true;
    if (ChainFrom(cell.overflow, uses) != (missing + room - 1) / room) return false;
    std::vector<quint32> passed;
    for (quint32 page = cell.overflow; page != 0; page = Long(page, 0)) {
        passed.push_back(page);
        if (uses.of[page] != Taken && uses.chains[page] != Endless) continue;
        for (const quint32 broken : passed)
            uses.chains[broken] = Endless;
        return false;
    }
    return true;
}

RawRow RawPages::Read(const Cell& cell, Uses& uses) const
{
    const bool complete = IsComplete(cell, uses);
    const Rest overflow = RestOf(cell, uses, complete ? ByOneRecord : Unused);
    QByteArray payload = cell.local.toByteArray();
    for (const quint32 page : overflow.pages) {
        uses.of[page] = uses.of[page] == Unused ? ByOneRecord : Taken;
        payload +=
            Page(page).sliced(4, std::min<qsizetype>(m_usable - 4, cell.local.size() + overflow.size - payload.size()));
    }
    RawRow row = {cell.id, {}};
    QByteArrayView rest(payload);
    const quint64 head = *TakeNumber(rest); // ColumnTypes has checked it
    rest = QByteArrayView(payload).sliced(static_cast<qsizetype>(head));
    for (const quint64 type : ColumnTypes(cell)) {
        const auto size = static_cast<qsizetype>(*SizeOf(type));
        const QByteArrayView bytes = rest.first(std::min(size, rest.size()));
        const bool isCutText = bytes.size() < size && !bytes.isEmpty() && type >= 13 && type % 2;
        if (bytes.size() == size && row.IsWhole()) ++row.wholeValues;
        row.values.push_back(bytes.size() == size ? ValueOf(type, bytes) : isCutText ? Cut(bytes) : RawValue());
        rest = rest.sliced(bytes.size());
    }
    return row;
}
