// The server's SQL.
#pragma once

#include "platform/engine/sql/sqldialect.h"

namespace postgres {
// A memo is bytes, since the server's texts allow neither a zero byte nor invalid UTF-8. Text is searched by ASCII
// letters only: other bytes become digits after a backslash. The tables that mark a schema as a planner and keep its
// history are not among its tables.
inline constexpr SqlDialect Dialect = {
    .types = {{{dbBoolean, "boolean"_L1},
               {dbLong, "integer"_L1},
               {dbSingle, "real"_L1},
               {dbDate, "timestamp(3) without time zone"_L1},
               {dbText, "character varying"_L1},
               {dbMemo, "bytea"_L1}}},
    .collation = " COLLATE \"C\""_L1,
    .idType = "integer GENERATED ALWAYS AS IDENTITY PRIMARY KEY"_L1,
    .ascending = " ASC NULLS FIRST"_L1,
    .descending = " DESC NULLS LAST"_L1,
    .keepsForeignTypes = false,
    .mark = u'$',
    .isFarAway = true,
    .knowsPatterns = false,
    .memoFits = "strpos(lower((encode(%1, 'escape')) COLLATE \"C\"), %2) > 0"_L1,
    .textFits = "strpos(lower((%1::text) COLLATE \"C\"), %2) > 0"_L1,
    .beginRead = "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"_L1,
    .beginWrite = "BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE"_L1,
    .tables = "SELECT c.oid, c.relname FROM pg_class AS c JOIN pg_namespace AS n ON n.oid = c.relnamespace "
              "WHERE n.nspname = '%1' AND c.relkind = 'r' AND c.relname NOT IN ('planner format', 'planner history') "
              "ORDER BY c.oid"_L1,
    .columns = "SELECT attname, format_type(atttypid, atttypmod) FROM pg_attribute "
               "WHERE attrelid = $1::oid AND attnum > 0 AND NOT attisdropped ORDER BY attnum"_L1,
    .indexes = "SELECT own.relname, i.indisunique, part.attname, i.indoption[0] & 1 FROM pg_index AS i "
               "JOIN pg_class AS own ON own.oid = i.indexrelid "
               "JOIN pg_attribute AS part ON part.attrelid = i.indrelid AND part.attnum = i.indkey[0] "
               "WHERE i.indrelid = $1::oid AND NOT i.indisprimary ORDER BY own.oid"_L1,
};
} // namespace postgres
