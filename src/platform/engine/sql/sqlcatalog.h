// Reads the tables of a planner from the database's own catalogue.
#pragma once

#include "platform/engine/sql/sqldialect.h"
#include "platform/engine/sql/sqlrows.h"

#include <functional>

class SqlCatalog
{
public:
    using Asking = std::function<SqlRows(const QString& statement, const SqlValues& values)>;
    struct Table
    {
        qint64 number; // in the database's catalogue
        QString name;  // with its original case
    };

    SqlCatalog(const SqlDialect& dialect, const QString& schema, Asking ask)
        : m_dialect(dialect), m_schema(schema), m_ask(std::move(ask))
    {
    }

    std::vector<Table> Tables() const;
    std::optional<Table> Find(const QString& table) const; // ignores case
    TableDef Definition(const Table& table) const;         // NotADatabase if a column's type is not one of a planner's

private:
    const SqlDialect& m_dialect;
    QString m_schema;
    Asking m_ask;
};
