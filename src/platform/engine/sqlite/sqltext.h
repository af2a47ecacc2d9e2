// The statements that the store uses, as text. Names come from callers and may hold blanks and quotes.
#pragma once

#include "platform/engine/store.h"

#include <QVarLengthArray>

#include <string>

namespace sqltext {
// Which rows a look-up considers, seen from the key and id of a place.
enum class Rows
{
    All,
    OfKey,     // binds the key, which is not null
    OfKeyPast, // binds the key and the id: beyond it in the direction of the walk
    PastId,    // binds the id, where there is no key
    Greater,   // binds the key; leaves rows without a key out, as Less does
    Less,
    WithoutKey,
    WithKey
};

struct LookUp
{
    Rows rows;
    bool forward; // in the index's own direction
};

// The look-ups to be made one after the other until one finds a row.
QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull);
bool BindsKey(Rows rows);
bool BindsId(Rows rows);

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
