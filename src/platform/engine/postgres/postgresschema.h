// What makes a schema of the server's database a planner: a table with one row.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"

namespace postgresschema {
inline constexpr int Version = 1;

struct Mark
{
    int version;
    QString id;   // no other planner has it
    qint64 table; // the number of the table itself
};

std::optional<Mark> FindMark(SqlConnection& connection, const QString& schema); // none if there is no planner
// Makes the schema, unless an administrator has made an empty one, and the mark. FileExists if it has one.
void Create(SqlConnection& connection, const QString& schema);
void DropMark(SqlConnection& connection, const QString& schema);
} // namespace postgresschema
