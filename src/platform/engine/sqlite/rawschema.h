// Definitions of tables out of the rows of a schema that may be damaged.
#pragma once

#include "platform/engine/sqlite/rawvalue.h"
#include "platform/engine/tabledef.h"

namespace rawschema {
inline constexpr std::size_t Columns = 5;

struct Table
{
    QString name;
    qint64 root;
    TableDef definition; // without fields if this is no table of a planner
};

// Expected tables supply the fields of a table whose own are lost, and lost indexes. A table of which nothing is left
// is not in the result.
std::vector<Table> Tables(const std::vector<RawRow>& rows, const std::vector<TableDef>& expected);
} // namespace rawschema
