#include "platform/engine/sql/sqlcatalog.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

std::vector<SqlCatalog::Table> SqlCatalog::Tables() const
{
    std::vector<Table> tables;
    for (const SqlRow& row : m_ask(QString(m_dialect.tables).replace("%1"_L1, m_schema), {}))
        tables.push_back({row.Number(0), row.Text(1)});
    return tables;
}

std::optional<SqlCatalog::Table> SqlCatalog::Find(const QString& name) const
{
    const std::vector<Table> tables = Tables();
    const auto found = FindNamed(tables, &Table::name, name);
    return found == tables.end() ? std::nullopt : std::optional(*found);
}

TableDef SqlCatalog::Definition(const Table& table) const
{
    TableDef definition = {table.name, {}, {}};
    for (const SqlRow& row : m_ask(m_dialect.columns, {table.number})) {
        const QString name = row.Text(0);
        if (name == IdColumn) continue;
        const auto field = FieldOf(m_dialect, name, row.Text(1));
        if (!field)
            throw RunTimeError{engineerrors::NotADatabase,
                               u"The table '%1' has a column '%2' of a type that no planner has: %3."_s.arg(
                                   table.name, name, row.Text(1))};
        definition.Fields.push_back(*field);
    }
    for (const SqlRow& row : m_ask(m_dialect.indexes, {table.number}))
        definition.Indexes.push_back(
            {row.Text(0), (row.Number(3) ? u"-"_s : QString()) + row.Text(2), row[1].toBool()});
    return definition;
}
