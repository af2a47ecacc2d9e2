// What the reader of old planners writes into its pipe and the program reads from it. Both sides include this; it knows
// nothing else of ours. docs/old-planners.md tells the form byte by byte.
#pragma once

#include <cstdint>

namespace jetstream {
// A frame is its size (four bytes, what follows the kind), its kind (one byte) and so many bytes. Numbers are
// little-endian; a text or value is its size in four bytes and its bytes, a value that is null NullSize alone.
enum Kind : std::uint8_t
{
    Head = 1,    // version (one byte: 0 Jet 3, 1 Jet 4), code page (two bytes)
    Table = 2,   // name, number of columns (two bytes); of each its type (one byte), size (two bytes), name
    Row = 3,     // a value for each column, as it lies in the file; a long value whole
    End = 4,     // empty; without it something is missing
    Refusal = 5, // a Reason (one byte), and nothing follows
};

enum Reason : std::uint8_t
{
    Unreadable = 1, // no Jet database of a version that is known
    Password = 2,
    Encoded = 3, // its pages are encoded, and not by the key in the file
    Damaged = 4,
    Unprotected = 5, // the reader could not limit what it may do
};

inline constexpr std::uint32_t NullSize = 0xFFFFFFFF;

// Types of columns that planners have or may have had.
enum Type : std::uint8_t
{
    Boolean = 1, // one byte
    Byte = 2,
    Integer = 3, // two bytes
    Long = 4,    // four
    Money = 5,   // eight, ten-thousandths
    Single = 6,
    Double = 7,
    Date = 8, // a double, days since 1899-12-30
    Text = 10,
    Memo = 12,
};
} // namespace jetstream
