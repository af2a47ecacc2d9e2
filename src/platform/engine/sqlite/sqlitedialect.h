// SQLite's SQL, and its answers as rows.
#pragma once

#include "platform/engine/sql/sqldialect.h"
#include "platform/engine/sql/sqlrows.h"

#include <SQLiteCpp/Statement.h>

namespace sqlite {
extern const SqlDialect Dialect;

// Returns all rows and resets the statement. Raises the library's exceptions.
SqlRows Ask(SQLite::Statement& statement, const SqlValues& values);
} // namespace sqlite
