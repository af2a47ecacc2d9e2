#include "platform/engine/sqlite/rawschema.h"

#include "platform/engine/sql/sqlcatalog.h"
#include "platform/engine/sqlite/sqlitedialect.h"

#include <SQLiteCpp/Database.h>

#include <algorithm>
#include <sqlite3.h>

namespace {
constexpr int ProgressSteps = 100000;

struct Item
{
    QByteArray type;
    QString name;
    qint64 root = 0;
    QByteArray sql;
};

QByteArray BytesOf(const RawValue& value)
{
    const auto* bytes = std::get_if<QByteArray>(&value);
    return bytes ? *bytes : QByteArray();
}

Item ItemOf(const RawRow& row)
{
    const auto* root = std::get_if<qint64>(&row.values[3]);
    return {BytesOf(row.values[0]), QString::fromUtf8(BytesOf(row.values[1])), root ? *root : 0,
            BytesOf(row.values[4])};
}

// The library parses the text in an empty database. False if it is not a definition of a table or index.
bool MakeFrom(SQLite::Database& empty, const QByteArray& sql)
{
    constexpr QByteArrayView Beginnings[] = {"CREATE TABLE ", "CREATE INDEX ", "CREATE UNIQUE INDEX "};
    if (std::ranges::none_of(Beginnings, [&](QByteArrayView beginning) { return sql.startsWith(beginning); }))
        return false;
    try {
        SQLite::Statement(empty, sql.toStdString()).exec();
        return true;
    } catch (const SQLite::Exception&) {
        return false;
    }
}

// Without fields if it is not a table of a planner, or the library reports an error.
TableDef DefinitionOf(SQLite::Database& database, const QString& table)
{
    const auto ask = [&](const QString& text, const SqlValues& values) {
        SQLite::Statement statement(database, text.toStdString());
        return sqlite::Ask(statement, values);
    };
    try {
        const QString first = u"SELECT 1 FROM pragma_table_info(?1) WHERE cid = 0 AND pk = 1 AND name = ?2"_s;
        const SqlCatalog catalog(sqlite::Dialect, {}, ask);
        const auto found = catalog.Find(table);
        return found && !ask(first, {table, IdColumn}).empty() ? catalog.Definition(*found) : TableDef();
    } catch (const SQLite::Exception&) {
        return {};
    }
}

bool HasIndex(const TableDef& table, const QString& name)
{
    return std::ranges::any_of(table.Indexes, [&](const Index& index) { return index.Name == name; });
}

bool HasField(const TableDef& table, const QString& name)
{
    return std::ranges::any_of(table.Fields, [&](const Field& field) { return field.Name == name; });
}

void Complete(TableDef& table, const TableDef& expected)
{
    if (table.Fields.empty()) table = expected;
    for (const Index& index : expected.Indexes)
        if (!HasIndex(table, index.Name) && HasField(table, KeyField(index))) table.Indexes.push_back(index);
}
} // namespace

namespace rawschema {
std::vector<Table> Tables(const std::vector<RawRow>& rows, const std::vector<TableDef>& expected)
{
    SQLite::Database empty(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    empty.exec("PRAGMA trusted_schema = OFF");
    // A forged definition could keep the library busy for ever.
    sqlite3_progress_handler(
        empty.getHandle(), ProgressSteps, [](void*) { return 1; }, nullptr);
    std::vector<Table> tables;
    for (const QByteArrayView type : {QByteArrayView("table"), QByteArrayView("index")}) {
        for (const RawRow& row : rows) {
            const Item item = ItemOf(row);
            if (item.type != type) continue;
            MakeFrom(empty, item.sql);
            if (type == "table") tables.push_back({item.name, item.root, {}});
        }
    }
    for (Table& table : tables) {
        table.definition = DefinitionOf(empty, table.name);
        const auto known = std::ranges::find(expected, table.name, &TableDef::Name);
        if (known != expected.end()) Complete(table.definition, *known);
    }
    return tables;
}
} // namespace rawschema
