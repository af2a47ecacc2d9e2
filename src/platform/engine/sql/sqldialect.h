// The differences between the databases' SQL.
#pragma once

#include "platform/engine/tabledef.h"

#include <array>
#include <optional>

// The first column of every table. It is not a field of the planner.
inline constexpr QLatin1StringView IdColumn = "record id"_L1;
inline constexpr QLatin1StringView DateFormat = "yyyy-MM-dd HH:mm:ss.zzz"_L1; // local time, without a time zone

struct SqlDialect
{
    struct TypeName
    {
        FieldType type;
        QLatin1StringView name;
    };

    std::array<TypeName, 6> types;
    QLatin1StringView collation;             // after the type of a text, whose size follows its name
    QLatin1StringView idType;                // of the id column
    QLatin1StringView ascending, descending; // rows without a key come first in ascending order, last in descending
    bool keepsForeignTypes;                  // a column of an unknown type is read as a memo
    char16_t mark;                           // precedes the number of a value

    bool isFarAway; // statements are slow, so look-ups are sent together
    // A condition on field %1 and value %2 that finds rows for a pattern: value is the pattern, or the piece of ASCII
    // in it.
    bool knowsPatterns;
    QLatin1StringView memoFits, textFits;

    QLatin1StringView beginRead, beginWrite;

    // Queries of the catalogue, with the schema as %1. tables: number and name of each, in order of creation. columns
    // of table $1: name and type. indexes of table $1: name, whether unique, field, whether descending.
    QLatin1StringView tables, columns, indexes;
};

QString DeclaredType(const SqlDialect& dialect, const Field& field);
std::optional<Field> FieldOf(const SqlDialect& dialect, const QString& name, const QString& declaredType);
