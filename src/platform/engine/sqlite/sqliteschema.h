// What tables a planner has, read from the file itself. Raises the library's exceptions.
#pragma once

#include "platform/engine/tabledef.h"

#include <SQLiteCpp/Database.h>

#include <optional>

namespace sqliteschema {
QStringList TableNames(SQLite::Database& database);
std::optional<QString> StoredName(SQLite::Database& database, const QString& table); // as it was given at creation
TableDef Definition(SQLite::Database& database, const QString& storedName);
qint64 TableNumber(SQLite::Database& database, const QString& storedName);
} // namespace sqliteschema
