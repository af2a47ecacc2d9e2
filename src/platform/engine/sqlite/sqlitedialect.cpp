#include "platform/engine/sqlite/sqlitedialect.h"

#include <QDateTime>

#include <SQLiteCpp/Column.h>

#include <sqlite3.h>

namespace {
// Resets a kept statement after its use: an open one would make another program's commit fail.
class Use
{
public:
    explicit Use(SQLite::Statement& statement) : m_statement(statement) {}
    ~Use() { m_statement.tryReset(); }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    SQLite::Statement& m_statement;
};

void Bind(SQLite::Statement& statement, int number, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return statement.bind(number, int64_t{value.toLongLong()});
    case QMetaType::Float:
    case QMetaType::Double:
        return statement.bind(number, value.toDouble());
    case QMetaType::QDateTime:
        return statement.bind(number, value.toDateTime().toString(DateFormat).toStdString());
    case QMetaType::QString:
        return statement.bind(number, value.toString().toStdString());
    case QMetaType::QByteArray: // bytes are stored as a text too
        return statement.bind(number, value.toByteArray().toStdString());
    default:
        return statement.bind(number);
    }
}

QVariant CellOf(const SQLite::Column& column)
{
    switch (column.getType()) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return qint64{column.getInt64()};
    case SQLITE_FLOAT:
        return column.getDouble();
    default:
        const char* bytes = column.getText();
        return QByteArray(bytes, column.getBytes());
    }
}
} // namespace

namespace sqlite {
constinit const SqlDialect Dialect = {
    // Each name has the affinity that leaves values unchanged. The memo's and the date's contain TEXT, so that a number
    // in them stays a text.
    .types = {{{dbBoolean, "BOOLEAN"_L1},
               {dbLong, "INTEGER"_L1},
               {dbSingle, "REAL"_L1},
               {dbDate, "DATE TEXT"_L1},
               {dbText, "TEXT"_L1},
               {dbMemo, "MEMO TEXT"_L1}}},
    .collation = ""_L1,
    .idType = "INTEGER PRIMARY KEY AUTOINCREMENT"_L1,
    .ascending = " ASC"_L1,
    .descending = " DESC"_L1,
    .keepsForeignTypes = true,
    .mark = u'?',
    .isFarAway = false,
    .knowsPatterns = true,
    .memoFits = "matches(%1, %2)"_L1,
    .textFits = "matches(%1, %2)"_L1,
    .beginRead = "BEGIN"_L1,
    .beginWrite = "BEGIN IMMEDIATE"_L1,
    .tables = "SELECT rowid, name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
              "AND name <> 'planner history' ORDER BY rowid"_L1,
    .columns = "SELECT part.name, part.type FROM sqlite_schema AS own JOIN pragma_table_info(own.name) AS part "
               "WHERE own.rowid = ?1 ORDER BY part.cid"_L1,
    .indexes = "SELECT list.name, list.\"unique\", part.name, part.desc FROM sqlite_schema AS own "
               "JOIN pragma_index_list(own.name) AS list JOIN pragma_index_xinfo(list.name) AS part "
               "JOIN sqlite_schema AS item ON item.name = list.name "
               "WHERE own.rowid = ?1 AND part.seqno = 0 AND list.origin = 'c' ORDER BY item.rowid"_L1,
};

SqlRows Ask(SQLite::Statement& statement, const SqlValues& values)
{
    const Use use(statement);
    statement.clearBindings(); // no value of an earlier use may stay
    int number = 0;
    for (const QVariant& value : values)
        Bind(statement, ++number, value);
    SqlRows rows;
    while (statement.executeStep()) {
        SqlRow& row = rows.emplace_back();
        row.cells.reserve(static_cast<std::size_t>(statement.getColumnCount()));
        for (int column = 0; column < statement.getColumnCount(); ++column)
            row.cells.push_back(CellOf(statement.getColumn(column)));
    }
    return rows;
}
} // namespace sqlite
