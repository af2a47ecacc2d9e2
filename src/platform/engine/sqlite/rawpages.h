// The pages, cells and records of a database's bytes, read without the library. No size, count or page number in them
// is trusted: what does not fit is told as missing.
#pragma once

#include "platform/engine/sqlite/rawvalue.h"

#include <optional>
#include <vector>

class RawPages
{
public:
    // The bytes outlive this. Pages count from 1; a last one that is cut is none.
    RawPages(QByteArrayView bytes, quint32 pageSize, quint32 reserved);
    // By the head of the bytes; nothing if it is no head of a database.
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
        QByteArrayView local; // the part that lies in the page
        quint32 overflow;     // the page of the rest, 0 if there is none
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

    // The pages of the list of free ones, as far as it can be read; nothing if it contradicts itself.
    std::optional<std::vector<quint32>> FreePages() const;

    // The types of the record's columns, as the format numbers them; empty if the record cannot be one.
    static std::vector<quint64> ColumnTypes(const Cell& cell);

    // What the pages, by number, are used for. An overwritten page may lead to the rest of another record, and which of
    // the two is right nobody can tell, so both may have it; a record that is not complete takes from no other.
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
        // How many pages it is from each to the end of its chain, as far as known: any number of records may lead into
        // one long chain, which is walked once.
        std::vector<quint32> chains;
    };

    bool IsComplete(const Cell& cell, Uses& uses) const;
    // Adds the record's own pages to the uses. Null values and a cut text stand where pages are lost.
    RawRow Read(const Cell& cell, Uses& uses) const;

private:
    // What of a record lies on pages of overflow.
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
    quint32 m_countOnce = 0; // as the head tells it, which may be more than is left
};
