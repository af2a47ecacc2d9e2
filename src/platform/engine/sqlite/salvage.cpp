#include "platform/engine/sqlite/salvage.h"

#include "platform/engine/longwork.h"
#include "platform/engine/sqlite/rawpages.h"
#include "platform/engine/sqlite/rawschema.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {
using salvage::Table;

constexpr std::size_t SequenceColumns = 2;

struct Tree
{
    std::vector<quint32> leaves;
    bool complete = true;
};

bool Fits(FieldType type, quint64 column)
{
    const bool isNumber = (column >= 1 && column <= 6) || column == 8 || column == 9;
    if (column == 0) return true;
    if (type == dbBoolean || type == dbLong) return isNumber;
    if (type == dbSingle) return isNumber || column == 7;
    return column >= 13 && column % 2 == 1;
}

// Whether an orphaned cell can be a row of the table. The id is the cell's number and not in the record.
bool Fits(const TableDef& table, const RawPages::Cell& cell)
{
    const std::vector<quint64> types = RawPages::ColumnTypes(cell);
    if (types.size() != table.Fields.size() + 1 || types[0] != 0) return false;
    for (std::size_t i = 0; i < table.Fields.size(); ++i)
        if (!Fits(table.Fields[i].Type, types[i + 1])) return false;
    return true;
}

class Salvage
{
public:
    Salvage(const RawPages& pages, const std::vector<TableDef>& expected);
    // call this once
    std::vector<Table> Tables();

private:
    Tree Walk(qint64 root);
    std::vector<RawPages::Cell> CellsOf(Tree& tree, std::size_t columns);
    std::vector<RawRow> ReadRows(Tree& tree, std::size_t columns);
    void TakeOrPutOff(std::size_t table, bool loose, const RawPages::Cell& cell);
    void Take(std::size_t table, bool loose, const RawPages::Cell& cell);
    void TakeIncomplete();
    void ReadSchema();
    void ReadTrees();
    void ReadLoose();
    std::vector<quint32> LoosePages() const;
    std::optional<std::size_t> TableOf(const std::vector<RawPages::Cell>& cells) const;
    void ReadLastIds(const std::vector<RawRow>& rows);

    const RawPages& m_pages;
    const std::vector<TableDef>& m_expected;
    RawPages::Uses m_uses;
    std::vector<rawschema::Table> m_schema;
    bool m_schemaComplete = false;
    std::vector<Table> m_tables;
    // Rows whose rest is lost. They wait until the complete rows have their pages: a wrong link may lead to another
    // row's.
    struct Incomplete
    {
        std::size_t table;
        bool loose;
        RawPages::Cell cell;
    };
    std::vector<Incomplete> m_incomplete;
};

Salvage::Salvage(const RawPages& pages, const std::vector<TableDef>& expected)
    : m_pages(pages), m_expected(expected), m_uses(pages.Count())
{
}

std::vector<Table> Salvage::Tables()
{
    if (m_pages.Count() > 0) ReadSchema();
    ReadTrees();
    for (const TableDef& table : m_expected) {
        const bool known =
            std::ranges::any_of(m_tables, [&](const Table& other) { return other.definition.Name == table.Name; });
        if (!known && !m_schemaComplete) m_tables.push_back({table, {}, {}});
    }
    const bool complete = std::ranges::all_of(m_tables, &Table::complete);
    if (!complete) ReadLoose();
    TakeIncomplete();
    return std::move(m_tables);
}

Tree Salvage::Walk(qint64 root)
{
    Tree tree;
    const bool inside = root >= 1 && root <= m_pages.Count();
    std::vector<quint32> ahead;
    if (inside) ahead.push_back(static_cast<quint32>(root));
    tree.complete = inside;
    while (!ahead.empty()) {
        const quint32 page = ahead.back();
        ahead.pop_back();
        const quint8 type = m_pages.TypeOf(page);
        const bool good = !m_uses.of[page] && (type == RawPages::Leaf || type == RawPages::Interior);
        tree.complete = tree.complete && good;
        if (!good) continue;
        m_uses.of[page] = RawPages::Taken;
        if (type == RawPages::Leaf) {
            tree.leaves.push_back(page);
            continue;
        }
        const RawPages::Children children = m_pages.ChildrenOf(page);
        tree.complete = tree.complete && children.complete;
        ahead.insert(ahead.end(), children.pages.rbegin(), children.pages.rend());
    }
    return tree;
}

std::vector<RawPages::Cell> Salvage::CellsOf(Tree& tree, std::size_t columns)
{
    std::vector<RawPages::Cell> fitting;
    for (const quint32 page : tree.leaves) {
        longwork::Goes();
        const RawPages::Cells cells = m_pages.LeafCells(page);
        std::ranges::copy_if(cells.whole, std::back_inserter(fitting), [&](const RawPages::Cell& cell) {
            const bool fits = RawPages::ColumnTypes(cell).size() == columns;
            tree.complete = tree.complete && fits;
            return fits;
        });
        tree.complete = tree.complete && cells.complete;
    }
    return fitting;
}

std::vector<RawRow> Salvage::ReadRows(Tree& tree, std::size_t columns)
{
    std::vector<RawRow> rows;
    for (const RawPages::Cell& cell : CellsOf(tree, columns))
        rows.push_back(m_pages.Read(cell, m_uses));
    return rows;
}

void Salvage::TakeOrPutOff(std::size_t table, bool loose, const RawPages::Cell& cell)
{
    if (m_pages.IsComplete(cell, m_uses)) return Take(table, loose, cell);
    m_incomplete.push_back({table, loose, cell});
}

void Salvage::Take(std::size_t table, bool loose, const RawPages::Cell& cell)
{
    RawRow row = m_pages.Read(cell, m_uses);
    row.values.erase(row.values.begin()); // the column of the id, which is null
    --row.wholeValues;
    (loose ? m_tables[table].loose : m_tables[table].rows).push_back(std::move(row));
}

void Salvage::TakeIncomplete()
{
    for (const auto& [table, loose, cell] : m_incomplete)
        Take(table, loose, cell);
}

void Salvage::ReadSchema()
{
    Tree tree = Walk(1);
    const std::vector<RawRow> rows = ReadRows(tree, rawschema::Columns);
    m_schemaComplete = tree.complete && !rows.empty();
    m_schema = rawschema::Tables(rows, m_expected);
}

void Salvage::ReadTrees()
{
    std::vector<Tree> trees;
    for (const rawschema::Table& table : m_schema) {
        // An unknown table may be a planner's whose name is lost. Its pages may still be recognised.
        const bool known = !table.definition.Fields.empty() || table.name.startsWith(u"sqlite_");
        trees.push_back(known ? Walk(table.root) : Tree{});
    }
    // Free pages hold deleted rows, unless the list names a page that is in use.
    const auto freePages = m_pages.FreePages();
    if (freePages && std::ranges::none_of(*freePages, [&](quint32 page) { return m_uses.of[page]; }))
        for (const quint32 page : *freePages)
            m_uses.of[page] = RawPages::Taken;
    std::vector<RawRow> lastIds;
    for (std::size_t i = 0; i < trees.size(); ++i) {
        const TableDef& definition = m_schema[i].definition;
        if (m_schema[i].name == u"sqlite_sequence") lastIds = ReadRows(trees[i], SequenceColumns);
        if (definition.Fields.empty()) continue;
        const std::vector<RawPages::Cell> cells = CellsOf(trees[i], definition.Fields.size() + 1);
        m_tables.push_back({definition, {}, {}, trees[i].complete});
        for (const RawPages::Cell& cell : cells)
            TakeOrPutOff(m_tables.size() - 1, false, cell);
    }
    ReadLastIds(lastIds);
}

void Salvage::ReadLastIds(const std::vector<RawRow>& rows)
{
    for (const RawRow& row : rows) {
        const auto* name = std::get_if<QByteArray>(&row.values[0]);
        const auto* last = std::get_if<qint64>(&row.values[1]);
        for (Table& table : m_tables)
            if (name && last && QString::fromUtf8(*name) == table.definition.Name) table.lastId = *last;
    }
}

// Leaves that an orphaned inner page links to come first: they were once in use together.
std::vector<quint32> Salvage::LoosePages() const
{
    std::vector<quint32> loose;
    std::vector<bool> led(m_uses.of.size());
    for (quint32 page = 2; page <= m_pages.Count(); ++page) {
        if (m_uses.of[page]) continue;
        if (m_pages.TypeOf(page) == RawPages::Leaf) loose.push_back(page);
        if (m_pages.TypeOf(page) == RawPages::Interior)
            for (const quint32 child : m_pages.ChildrenOf(page).pages)
                led[child] = true;
    }
    std::ranges::stable_partition(loose, [&](quint32 page) { return led[page]; });
    return loose;
}

// All cells of a page belong to one table, so takes the table that most of them fit.
std::optional<std::size_t> Salvage::TableOf(const std::vector<RawPages::Cell>& cells) const
{
    std::optional<std::size_t> best;
    std::ptrdiff_t most = 0;
    for (std::size_t i = 0; i < m_tables.size(); ++i) {
        const auto fitting = std::ranges::count_if(
            cells, [&](const RawPages::Cell& cell) { return Fits(m_tables[i].definition, cell); });
        if (fitting > most) best = i;
        most = std::max(most, fitting);
    }
    return best;
}

void Salvage::ReadLoose()
{
    for (const quint32 page : LoosePages()) {
        longwork::Goes();
        if (m_uses.of[page]) continue; // now known as the rest of a record
        const std::vector<RawPages::Cell> cells = m_pages.LeafCells(page).whole;
        const auto table = TableOf(cells);
        if (!table || m_tables[*table].complete) continue;
        for (const RawPages::Cell& cell : cells)
            if (Fits(m_tables[*table].definition, cell)) TakeOrPutOff(*table, true, cell);
    }
}

std::size_t RowsOf(const std::vector<Table>& tables)
{
    std::size_t rows = 0;
    for (const Table& table : tables)
        rows += table.rows.size() + table.loose.size();
    return rows;
}
} // namespace

namespace salvage {
Result Read(QByteArrayView bytes, const std::vector<TableDef>& expected)
{
    const auto byHead = RawPages::ByHead(bytes);
    Result result = {byHead.has_value(), {}};
    if (byHead) result.tables = Salvage(*byHead, expected).Tables();
    if (RowsOf(result.tables) > 0 || (byHead && std::ranges::all_of(result.tables, &Table::complete))) return result;
    // The page size is lost. The right one is the one that finds the most rows.
    for (quint32 pageSize = 512; pageSize <= 65536; pageSize *= 2) {
        const RawPages pages(bytes, pageSize, 0);
        std::vector<Table> tables = Salvage(pages, expected).Tables();
        if (RowsOf(tables) > RowsOf(result.tables)) result.tables = std::move(tables);
    }
    return result;
}
} // namespace salvage
