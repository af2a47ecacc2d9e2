#include "platform/engine/sqlite/sqliteschema.h"

#include "platform/engine/sqlite/sqlitevalues.h"
#include "platform/engine/sqlite/sqltext.h"
#include "platform/engine/storedform.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace {
SQLite::Statement Asking(SQLite::Database& database, const char* text, const QString& table)
{
    SQLite::Statement statement(database, text);
    BindText(statement, 1, table);
    return statement;
}

std::vector<Field> FieldsOf(SQLite::Database& database, const QString& table)
{
    std::vector<Field> fields;
    auto columns = Asking(database, "SELECT name, type FROM pragma_table_info(?) ORDER BY cid", table);
    while (columns.executeStep()) {
        const QString name = TextOf(columns.getColumn(0));
        if (name != storedform::IdColumn) fields.push_back(sqltext::FieldOf(name, TextOf(columns.getColumn(1))));
    }
    return fields;
}

std::vector<Index> IndexesOf(SQLite::Database& database, const QString& table)
{
    std::vector<Index> indexes;
    auto rows = Asking(database,
                       "SELECT list.name, list.\"unique\", part.name, part.desc FROM pragma_index_list(?) AS list "
                       "JOIN pragma_index_xinfo(list.name) AS part JOIN sqlite_schema AS item ON item.name = list.name "
                       "WHERE part.seqno = 0 AND list.origin = 'c' ORDER BY item.rowid",
                       table);
    while (rows.executeStep()) {
        const QString sign = rows.getColumn(3).getInt() != 0 ? u"-"_s : QString();
        indexes.push_back(
            {TextOf(rows.getColumn(0)), sign + TextOf(rows.getColumn(2)), rows.getColumn(1).getInt() != 0});
    }
    return indexes;
}
} // namespace

namespace sqliteschema {
QStringList TableNames(SQLite::Database& database)
{
    QStringList names;
    SQLite::Statement statement(
        database, "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
                  "ORDER BY rowid");
    while (statement.executeStep())
        names += TextOf(statement.getColumn(0));
    return names;
}

std::optional<QString> StoredName(SQLite::Database& database, const QString& table)
{
    auto found =
        Asking(database, "SELECT name FROM sqlite_schema WHERE type = 'table' AND name = ? COLLATE NOCASE", table);
    return found.executeStep() ? std::optional(TextOf(found.getColumn(0))) : std::nullopt;
}

TableDef Definition(SQLite::Database& database, const QString& storedName)
{
    return {storedName, FieldsOf(database, storedName), IndexesOf(database, storedName)};
}

qint64 TableNumber(SQLite::Database& database, const QString& storedName)
{
    auto found = Asking(database, "SELECT rowid FROM sqlite_schema WHERE type = 'table' AND name = ?", storedName);
    found.executeStep();
    return found.getColumn(0).getInt64();
}
} // namespace sqliteschema
