// The statements that the store uses, as text. Names come from callers and may hold blanks and quotes.
#pragma once

#include "platform/engine/lookup.h"

#include <string>

namespace sqltext {
std::string Find(const TableDef& table, const Index& index, LookUp lookUp, const QString& likeField);
std::string Fetch(const TableDef& table);   // binds the id
std::string Insert(const TableDef& table);  // binds the values
std::string Restore(const TableDef& table); // binds the id, null for a new one, and the values; passes over duplicates
std::string Replace(const TableDef& table); // binds the new values, the id and the old ones
std::string Erase(const TableDef& table);   // binds the id and the old values

std::string CreateTable(const TableDef& table);
std::string CreateIndex(const TableDef& table, const Index& index);

// A field's declared type and back.
QString DeclaredType(const Field& field);
Field FieldOf(const QString& name, const QString& declaredType);
} // namespace sqltext
