// Rebuilds table definitions from a schema that may be damaged.
#pragma once

#include "platform/engine/sqlite/rawvalue.h"
#include "platform/engine/tabledef.h"

namespace rawschema {
inline constexpr std::size_t Columns = 5;

struct Table
{
    QString name;
    qint64 root;
    TableDef definition; // without fields if it is not a planner's table
};

// The expected tables supply lost indexes, and the fields of a table whose own are lost. A table that the schema no
// longer names is not in the result.
std::vector<Table> Tables(const std::vector<RawRow>& rows, const std::vector<TableDef>& expected);
} // namespace rawschema
