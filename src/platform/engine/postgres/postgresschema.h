// The mark of a schema that is a planner: a table with one row.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"

namespace postgresschema {
inline constexpr int Version = 1;

struct Mark
{
    int version;
    QString id;   // unique to the planner
    qint64 table; // the number of the mark's own table
};

std::optional<Mark> FindMark(SqlConnection& connection, const QString& schema); // none if the schema is not a planner
// Makes the schema, unless an administrator has made an empty one, and the mark. FileExists if it has a mark.
void Create(SqlConnection& connection, const QString& schema);
void DropMark(SqlConnection& connection, const QString& schema);
} // namespace postgresschema
