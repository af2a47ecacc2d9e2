#include "platform/engine/sqlite/rebuilding.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/sqlitevalues.h"
#include "platform/engine/sqlite/sqltext.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <SQLiteCpp/Statement.h>

#include <algorithm>

namespace {
bool IsId(qint64 id)
{
    return id >= 1 && id < plannerformat::IdLimit;
}

void BindRaw(SQLite::Statement& statement, int number, const RawValue& value)
{
    if (const auto* integer = std::get_if<qint64>(&value)) return statement.bind(number, int64_t{*integer});
    if (const auto* real = std::get_if<double>(&value)) return statement.bind(number, *real);
    if (const auto* text = std::get_if<QByteArray>(&value)) return statement.bind(number, text->toStdString());
    if (const auto* blob = std::get_if<RawBlob>(&value))
        return statement.bind(number, blob->bytes.constData(), static_cast<int>(blob->bytes.size()));
    statement.bind(number);
}

// A cut text is better than none, but only under its right day.
bool HasWholeKeys(const TableDef& table, const RawRow& row)
{
    return std::ranges::all_of(
        table.Indexes, [&](const Index& index) { return FieldNumber(table, KeyField(index)) < row.wholeValues; });
}

class TableWriter
{
public:
    TableWriter(SQLite::Database& library, const salvage::Table& table)
        : m_library(library), m_table(table),
          m_insert(library, sqltext::Restore(table.definition)), m_report{table.definition.Name}
    {
    }

    RepairReport::Table Write()
    {
        const bool hasKey = !PrimaryIndex(m_table.definition).Fields.isEmpty();
        std::vector<const RawRow*> homeless;
        for (const RawRow& row : m_table.rows)
            // With a key of its own it cannot be an older state of the row that has the id.
            if (HasWholeKeys(m_table.definition, row) && !Insert(row, IsId(row.id)) && hasKey) homeless.push_back(&row);
        for (const RawRow& row : m_table.loose)
            if (HasWholeKeys(m_table.definition, row) && IsId(row.id)) Insert(row, true);
        RaiseLastId();
        for (const RawRow* row : homeless)
            Insert(*row, false);
        return m_report;
    }

private:
    // False if another row has its id or its key.
    bool Insert(const RawRow& row, bool underItsId)
    {
        int number = 1;
        BindRaw(m_insert, number, underItsId ? RawValue(row.id) : RawValue());
        for (const RawValue& value : row.values)
            BindRaw(m_insert, ++number, value);
        const bool inserted = m_insert.exec() == 1;
        m_insert.reset();
        m_report.Rows += inserted ? 1 : 0;
        m_report.CutRows += inserted && !row.IsWhole() ? 1 : 0;
        return inserted;
    }

    void RaiseLastId()
    {
        if (!IsId(m_table.lastId)) return;
        for (const char* text : {"INSERT INTO sqlite_sequence (name, seq) SELECT ?1, ?2 WHERE NOT EXISTS "
                                 "(SELECT 1 FROM sqlite_sequence WHERE name = ?1)",
                                 "UPDATE sqlite_sequence SET seq = max(seq, ?2) WHERE name = ?1"}) {
            SQLite::Statement raise(m_library, text);
            BindText(raise, 1, m_table.definition.Name);
            raise.bind(2, int64_t{m_table.lastId});
            raise.exec();
        }
    }

    SQLite::Database& m_library;
    const salvage::Table& m_table;
    SQLite::Statement m_insert;
    RepairReport::Table m_report;
};
} // namespace

namespace rebuilding {
std::vector<RepairReport::Table> Write(const std::vector<salvage::Table>& tables, const QString& path)
{
    std::vector<RepairReport::Table> report;
    {
        SqliteConnection planner(path);
        planner.SetUp();
        planner.WriteEmptyPlanner();
        planner.Write([&] {
            for (const salvage::Table& table : tables) {
                planner.Library().exec(sqltext::CreateTable(table.definition));
                for (const Index& index : table.definition.Indexes)
                    planner.Library().exec(sqltext::CreateIndex(table.definition, index));
                report.push_back(TableWriter(planner.Library(), table).Write());
            }
        });
        planner.CheckHead();
        planner.CheckWhole();
    }
    wholefiles::Sync(path);
    return report;
}
} // namespace rebuilding
