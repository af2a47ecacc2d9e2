#include "platform/engine/sqlite/rebuilding.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"
#include "platform/engine/sql/sqltext.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/sqlitedialect.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <algorithm>
#include <iterator>

namespace {
const SqlText Text(sqlite::Dialect);

bool IsId(qint64 id)
{
    return id >= 1 && id < plannerformat::IdLimit;
}

QVariant StoredValueOf(const RawValue& value)
{
    if (const auto* integer = std::get_if<qint64>(&value)) return *integer;
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* text = std::get_if<QByteArray>(&value)) return *text;
    return {};
}

// A cut text is kept, but only under its right day.
bool HasWholeKeys(const TableDef& table, const RawRow& row)
{
    return std::ranges::all_of(
        table.Indexes, [&](const Index& index) { return FieldNumber(table, KeyField(index)) < row.wholeValues; });
}

// The rows of all tables, for long work.
struct RowCount
{
    qint64 all = 0, done = 0;
};

class TableWriter
{
public:
    TableWriter(SqliteConnection& planner, const salvage::Table& table, RowCount& count)
        : m_planner(planner), m_table(table), m_count(count),
          m_insert(Text.Restore(table.definition)), m_report{table.definition.Name}
    {
    }

    RepairReport::Table Write()
    {
        const bool hasKey = !PrimaryIndex(m_table.definition).Fields.isEmpty();
        std::vector<const RawRow*> homeless;
        for (const RawRow& row : m_table.rows)
            // With a key of its own, it cannot be an older version of the row with this id.
            if (HasWholeKeys(m_table.definition, row) && !Insert(row, IsId(row.id)) && hasKey) homeless.push_back(&row);
        for (const RawRow& row : m_table.loose)
            if (HasWholeKeys(m_table.definition, row) && IsId(row.id)) Insert(row, true);
        RaiseLastId();
        for (const RawRow* row : homeless)
            Insert(*row, false);
        return m_report;
    }

private:
    // False if another row has this id or key.
    bool Insert(const RawRow& row, bool underItsId)
    {
        longwork::Reached(m_count.done++, m_count.all);
        SqlValues values = {underItsId ? QVariant(row.id) : QVariant()};
        std::ranges::transform(row.values, std::back_inserter(values), StoredValueOf);
        const bool inserted = !m_planner.Ask(m_insert, values).empty();
        m_report.Rows += inserted ? 1 : 0;
        m_report.CutRows += inserted && !row.IsWhole() ? 1 : 0;
        return inserted;
    }

    void RaiseLastId()
    {
        if (!IsId(m_table.lastId)) return;
        for (const char* text : {"INSERT INTO sqlite_sequence (name, seq) SELECT ?1, ?2 WHERE NOT EXISTS "
                                 "(SELECT 1 FROM sqlite_sequence WHERE name = ?1)",
                                 "UPDATE sqlite_sequence SET seq = max(seq, ?2) WHERE name = ?1"})
            m_planner.Ask(QString::fromLatin1(text), {m_table.definition.Name, m_table.lastId});
    }

    SqliteConnection& m_planner;
    const salvage::Table& m_table;
    RowCount& m_count;
    const QString m_insert;
    RepairReport::Table m_report;
};
} // namespace

namespace rebuilding {
std::vector<RepairReport::Table> Write(const std::vector<salvage::Table>& tables, const QString& path)
{
    std::vector<RepairReport::Table> report;
    RowCount count;
    for (const salvage::Table& table : tables)
        count.all += static_cast<qint64>(table.rows.size() + table.loose.size());
    {
        SqliteConnection planner(path);
        planner.SetUp();
        planner.WriteEmptyPlanner();
        planner.Write([&] {
            for (const salvage::Table& table : tables) {
                planner.Ask(Text.CreateTable(table.definition));
                for (const Index& index : table.definition.Indexes)
                    planner.Ask(Text.CreateIndex(table.definition, index));
                report.push_back(TableWriter(planner, table, count).Write());
            }
        });
        planner.CheckWhole();
    }
    wholefiles::Sync(path);
    return report;
}
} // namespace rebuilding
