// What a planner on a server consists of: its schema, the mark that makes it a planner, and its tables, all read from
// the server's own catalog.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"
#include "platform/engine/tabledef.h"

#include <optional>

class PostgresSchema
{
public:
    // The table that makes a schema a planner, with one row: the format's version and an id that no other planner has.
    static const QString FormatTable;
    static constexpr int Version = 1;

    struct Mark
    {
        int version;
        QString id;
        quint32 table; // the number of the table itself
    };
    struct Table
    {
        quint32 number; // the server's
        QString name;   // as it was given at creation
    };

    PostgresSchema(PostgresConnection& connection, const QString& schema) : m_connection(connection), m_schema(schema)
    {
    }

    std::optional<Mark> FindMark() const; // none if there is no planner
    // Makes the schema, unless an administrator has made an empty one, and the mark. 3204 if it has one.
    void Create();
    void Drop(); // the planner with all its tables

    QStringList TableNames() const;
    std::optional<Table> Find(const QString& table) const; // without regard to case
    TableDef Definition(const Table& table) const;         // 3343 for a column that no planner has

private:
    pqxx::result AskOf(const std::string& statement) const; // binds the schema

    PostgresConnection& m_connection;
    QString m_schema;
};
