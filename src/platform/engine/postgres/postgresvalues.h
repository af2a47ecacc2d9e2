// Values on their way into statements and out of rows.
#pragma once

#include "platform/engine/store.h"

#include <pqxx/result>

#include <optional>
#include <string>

// The value is one that AsFieldValue made, or null. 3421 for a text with a NUL, which no server takes.
std::optional<std::string> ParameterOf(const QVariant& value);
std::string ArrayOf(const QStringList& texts); // an array's text

// A server can answer anything. An absent column counts as null.
QString TextOf(const pqxx::field& field);  // empty for null
qint64 NumberOf(const pqxx::field& field); // 3043 for null and for what is none
bool IsTrue(const pqxx::field& field);

// The row's columns from the one of this number on: id, then the fields in their order. 3043.
Row ReadRow(const pqxx::row& found, int column, const TableDef& table);
