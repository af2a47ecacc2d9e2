// What the databases say differently.
#pragma once

#include "platform/engine/tabledef.h"

#include <array>
#include <optional>

// Every table begins with it. It is no field of the planner.
inline constexpr QLatin1StringView IdColumn = "record id"_L1;
inline constexpr QLatin1StringView DateFormat = "yyyy-MM-dd HH:mm:ss.zzz"_L1; // what a clock on the wall shows: no zone

struct SqlDialect
{
    struct TypeName
    {
        FieldType type;
        QLatin1StringView name;
    };

    std::array<TypeName, 6> types;
    QLatin1StringView collation;             // behind the type of a text, whose size stands behind its name
    QLatin1StringView idType;                // of the column of ids
    QLatin1StringView ascending, descending; // rows without a key come first, and last
    bool keepsForeignTypes;                  // a column of another type reads as a memo
    char16_t mark;                           // before the number of a value

    bool isFarAway; // each statement is a journey: look-ups are asked together
    // A condition for field %1 and value %2, by which rows are sought for a pattern: the pattern itself, or the piece
    // of ASCII in it.
    bool knowsPatterns;
    QLatin1StringView memoFits, textFits;

    QLatin1StringView beginRead, beginWrite;

    // The catalogue: number and name of each table in the order of their making, with the schema as %1; of the table $1
    // names and types of its columns; and of its indexes name, whether unique, field, whether descending.
    QLatin1StringView tables, columns, indexes;
};

QString DeclaredType(const SqlDialect& dialect, const Field& field);
std::optional<Field> FieldOf(const SqlDialect& dialect, const QString& name, const QString& declaredType);
