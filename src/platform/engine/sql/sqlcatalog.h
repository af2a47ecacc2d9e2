// Which tables a planner has, read from the database's own catalogue.
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
        qint64 number; // the database's
        QString name;  // as it was given at creation
    };

    SqlCatalog(const SqlDialect& dialect, const QString& schema, Asking ask)
        : m_dialect(dialect), m_schema(schema), m_ask(std::move(ask))
    {
    }

    std::vector<Table> Tables() const;
    std::optional<Table> Find(const QString& table) const; // without regard to case
    TableDef Definition(const Table& table) const;         // NotADatabase for a column that no planner has

private:
    const SqlDialect& m_dialect;
    QString m_schema;
    Asking m_ask;
};
