// Values on their way into statements and out of rows.
#pragma once

#include "platform/engine/store.h"

#include <SQLiteCpp/Statement.h>

// Number counts from 1. The value is one that AsFieldValue made, or null.
void BindValue(SQLite::Statement& statement, int number, const QVariant& value);
void BindText(SQLite::Statement& statement, int number, const QString& text);

// The row that the statement stands on: id, then the fields in their order.
Row ReadRow(const SQLite::Statement& statement, const TableDef& table);
QString TextOf(const SQLite::Column& column);
