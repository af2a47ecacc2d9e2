// Reads the pages, cells and records of a database without the library. No size, count or page number in the file is
// trusted: what does not fit counts as missing.
#pragma once

#include "platform/engine/sqlite/rawvalue.h"

#include <optional>
#include <vector>

class RawPages
{
public:
    // The bytes must outlive this. Pages count from 1; a cut last page does not count.
    RawPages(QByteArrayView bytes, quint32 pageSize, quint32 reserved);
    // By the file's head; none if the bytes have no valid one.
    static std::optional<RawPages> ByHead(QByteArrayView bytes);

    enum Type : quint8
    {
        Interior = 0x05,
        Leaf = 0x0D
    };
    struct Cell
    {
        quint64 size; // of the whole record
        qint64 id;
        QByteArrayView local; // the part within the page
        quint32 overflow;     // the first page of the rest, 0 if there is none
    };
    struct Cells
    {
        std::vector<Cell> whole;
        bool complete; // no cell of the page is damaged
    };
    struct Children
    {
        std::vector<quint32> pages;
        bool complete;
    };

    quint32 Count() const { return m_count; }
    bool Contains(quint32 page) const { return page >= 1 && page <= m_count; }
    quint8 TypeOf(quint32 page) const;
    Cells LeafCells(quint32 page) const;
    Children ChildrenOf(quint32 page) const;

    // The free pages, as far as their list can be read. None if the list contradicts itself.
    std::optional<std::vector<quint32>> FreePages() const;

    // The column types of the record, as the format numbers them. Empty if the cell cannot be a record.
    static std::vector<quint64> ColumnTypes(const Cell& cell);

    // How each page, by number, is used. An overwritten page may link to the rest of another record. Nobody can tell
    // which of the two owns the rest, so both may have it. An incomplete record takes unused pages only.
    enum Use : quint8
    {
        Unused,
        ByOneRecord,
        Taken
    };
    struct Uses
    {
        explicit Uses(quint32 pages) : of(pages + std::size_t{1}), chains(pages + std::size_t{1}) {}
        std::vector<Use> of;
        // For each page the number of pages to the end of its chain, if known. Many records may link into one long
        // chain; it is walked once.
        std::vector<quint32> chains;
    };

    bool IsComplete(const Cell& cell, Uses& uses) const;
    // Marks the record's pages as used. Values on lost pages become null or a cut text.
    RawRow Read(const Cell& cell, Uses& uses) const;

private:
    // The part of a record on overflow pages.
    struct Rest
    {
        std::vector<quint32> pages;
        qsizetype size;
        bool complete;
    };

    QByteArrayView Page(quint32 page) const;
    std::optional<Cell> CellAt(QByteArrayView page, qsizetype at) const;
    Rest RestOf(const Cell& cell, const Uses& uses, Use most) const;
    quint32 ChainFrom(quint32 first, Uses& uses) const;
    static constexpr quint32 Unknown = 0, Endless = 0xffffffff; // of chains
    quint32 Long(quint32 page, qsizetype at) const;

    QByteArrayView m_bytes;
    quint32 m_pageSize;
    quint32 m_usable;
    quint32 m_count;
    quint32 m_countOnce = 0; // as the head says; more than m_count if the file was cut
};
