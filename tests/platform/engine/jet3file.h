// Makes databases of the older engine's third version, as small as readers accept: pages of 2048 bytes, a catalog,
// tables without indexes, memos in their row, on one page, or on many. The numbers are those of the format.
#pragma once

#include "platform/engine/jet/jetstream.h"

#include <QByteArrayList>
#include <QtEndian>

#include <array>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

inline void Rc4(QByteArray& bytes, qsizetype at, qsizetype size, const QByteArray& key)
{
    std::array<uchar, 256> state;
    std::iota(state.begin(), state.end(), uchar(0));
    for (int i = 0, j = 0; i < 256; ++i) {
        j = (j + state[i] + static_cast<uchar>(key[i % key.size()])) % 256;
        std::swap(state[i], state[j]);
    }
    for (qsizetype n = 0, i = 0, j = 0; n < size; ++n) {
        i = (i + 1) % 256;
        j = (j + state[i]) % 256;
        std::swap(state[i], state[j]);
        bytes[at + n] = static_cast<char>(bytes[at + n] ^ state[(state[i] + state[j]) % 256]);
    }
}

template <typename Number>
QByteArray LittleEndian(Number number)
{
    QByteArray bytes(sizeof(Number), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

// The fourth version's form of texts: 16 bits a character.
inline QByteArray Wide(const QString& text)
{
    QByteArray bytes;
    for (const QChar character : text)
        bytes += LittleEndian(character.unicode());
    return bytes;
}

class Jet3File
{
public:
    struct Column
    {
        QByteArray name;
        jetstream::Type type;
    };
    using Row = std::vector<std::optional<QByteArray>>; // null is false for a boolean; later columns may be missing

    explicit Jet3File(quint16 codePage) : m_codePage(codePage), m_pages(FirstFree, QByteArray(PageSize, '\0')) {}

    void AddTable(const QByteArray& name, const std::vector<Column>& columns, const std::vector<Row>& rows)
    {
        const auto page = NewPage();
        WriteTable(page, columns, rows);
        AddToCatalog(page, name);
    }

    QByteArray Bytes()
    {
        QByteArray& head = m_pages[0];
        head.replace(0, 20, QByteArray("\0\1\0\0Standard Jet DB\0", 20));
        head.replace(0x3C, 2, LittleEndian(m_codePage));
        Rc4(head, 0x18, 126, QByteArray("\xC7\xDA\x39\x6B", 4));
        AddToCatalog(Catalog, "MSysObjects");
        WriteTable(Catalog,
                   {{"Id", jetstream::Long},
                    {"Name", jetstream::Text},
                    {"Type", jetstream::Integer},
                    {"Flags", jetstream::Long},
                    {"LvProp", jetstream::Memo}},
                   m_catalog);
        return std::accumulate(m_pages.begin(), m_pages.end(), QByteArray());
    }

private:
    static constexpr int PageSize = 2048, Catalog = 2, FirstFree = 3, DataHead = 10, MostRows = 8;
    static constexpr qsizetype MapSize = 5 + 512, Piece = 2000;

    void AddToCatalog(quint32 page, const QByteArray& name)
    {
        constexpr qint16 table = 1;
        m_catalog.push_back({LittleEndian(page), name, LittleEndian(table), LittleEndian(0), std::nullopt});
    }

    quint32 NewPage()
    {
        m_pages.push_back(QByteArray(PageSize, '\0'));
        return static_cast<quint32>(m_pages.size() - 1);
    }

    // Rows fill the page from its end; their offsets follow its head.
    quint32 DataPage(const QByteArray& owner, const QByteArrayList& rows)
    {
        const quint32 number = NewPage();
        QByteArray& page = m_pages[number];
        page.replace(0, 2, "\1\1");
        page.replace(4, 4, owner);
        page.replace(8, 2, LittleEndian(static_cast<quint16>(rows.size())));
        qsizetype end = PageSize;
        for (qsizetype i = 0; i < rows.size(); ++i) {
            end -= rows[i].size();
            page.replace(end, rows[i].size(), rows[i]);
            page.replace(DataHead + 2 * i, 2, LittleEndian(static_cast<quint16>(end)));
        }
        return number;
    }

    QByteArray Memo(const QByteArray& text)
    {
        const auto size = static_cast<quint32>(text.size());
        if (size < 64) return LittleEndian(size | 0x80000000u) + QByteArray(8, '\0') + text;
        const bool onOnePage = size <= Piece;
        quint32 place = onOnePage ? DataPage("LVAL", {text}) << 8 : 0;
        for (qsizetype at = (text.size() - 1) / Piece * Piece; !onOnePage && at >= 0; at -= Piece)
            place = DataPage("LVAL", {LittleEndian(place) + text.mid(at, Piece)}) << 8;
        return LittleEndian(size | (onOnePage ? 0x40000000u : 0)) + LittleEndian(place) + QByteArray(4, '\0');
    }

    static bool IsFixed(jetstream::Type type) { return type != jetstream::Text && type != jetstream::Memo; }
    static int SizeOf(jetstream::Type type)
    {
        if (type == jetstream::Boolean) return 0;
        if (type == jetstream::Integer) return 2;
        return type == jetstream::Long || type == jetstream::Single ? 4 : type == jetstream::Date ? 8 : 255;
    }

    QByteArray RowBytes(const std::vector<Column>& columns, const Row& row)
    {
        QByteArray fixed, texts, offsets, present((static_cast<qsizetype>(row.size()) + 7) / 8, '\0');
        std::vector<QByteArray> variable;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const auto& value = row[i];
            if (value) present[static_cast<qsizetype>(i / 8)] |= static_cast<char>(1 << i % 8);
            if (IsFixed(columns[i].type))
                fixed += columns[i].type == jetstream::Boolean
                             ? QByteArray()
                             : value.value_or(QByteArray(SizeOf(columns[i].type), '\0'));
            else
                variable.push_back(!value ? QByteArray() : columns[i].type == jetstream::Memo ? Memo(*value) : *value);
        }
        for (const QByteArray& value : variable) {
            offsets.prepend(static_cast<char>(1 + fixed.size() + texts.size()));
            texts += value;
        }
        offsets.prepend(static_cast<char>(1 + fixed.size() + texts.size()));
        return static_cast<char>(row.size()) + fixed + texts + offsets + static_cast<char>(variable.size()) + present;
    }

    void WriteTable(quint32 page, const std::vector<Column>& columns, const std::vector<Row>& rows)
    {
        QByteArray map = '\0' + LittleEndian(0u) + QByteArray(MapSize - 5, '\0');
        for (std::size_t at = 0; at < rows.size(); at += MostRows) {
            QByteArrayList bytes;
            for (std::size_t i = at; i < std::min(at + MostRows, rows.size()); ++i)
                bytes += RowBytes(columns, rows[i]);
            const quint32 data = DataPage(LittleEndian(page), bytes);
            map[5 + data / 8] |= static_cast<char>(1 << data % 8);
        }
        const quint32 maps = DataPage(LittleEndian(page), {map, map}) << 8;
        QByteArray entries, names;
        int number = 0, fixed = 0, variable = 0;
        for (const Column& column : columns) {
            const bool isFixed = IsFixed(column.type);
            const auto order = static_cast<quint16>(number++);
            const auto size = static_cast<quint16>(column.type == jetstream::Memo ? 0 : SizeOf(column.type));
            entries += static_cast<char>(column.type) + LittleEndian(order) +
                       LittleEndian(static_cast<quint16>(variable)) + LittleEndian(order) + QByteArray(6, '\0') +
                       (isFixed ? '\3' : '\2') + LittleEndian(static_cast<quint16>(isFixed ? fixed : 0)) +
                       LittleEndian(size);
            names += static_cast<char>(column.name.size()) + column.name;
            isFixed ? fixed += size : ++variable;
        }
        const auto count = static_cast<quint16>(columns.size());
        const QByteArray definition =
            QByteArray("\2\1VC\0\0\0\0\0\0\0\0", 12) + LittleEndian(static_cast<quint32>(rows.size())) +
            QByteArray(4, '\0') + 'N' + LittleEndian(count) + LittleEndian(static_cast<quint16>(variable)) +
            LittleEndian(count) + QByteArray(8, '\0') + LittleEndian(maps) + LittleEndian(maps + 1) + entries + names;
        m_pages[page].replace(0, definition.size(), definition);
    }

    quint16 m_codePage;
    std::vector<QByteArray> m_pages;
    std::vector<Row> m_catalog;
};
