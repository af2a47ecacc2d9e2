// The former texts of a table's records, kept by a trigger of the server, so that the writes of every program are
// caught.
#pragma once

#include "platform/engine/postgres/postgresconnection.h"
#include "platform/engine/sql/sqltext.h"

namespace postgreshistory {
// Makes the history's table and trigger if they are missing and this role may. Within one write.
void Begin(SqlConnection& connection, const QString& schema, const SqlText& text, const KeptTexts& texts);

// The newest first. Empty if the schema has no history. BrokenConnection, ReadOnlyFile.
std::optional<std::vector<PastText>> Of(SqlConnection& connection, const SqlText& text, const QString& key);
} // namespace postgreshistory
