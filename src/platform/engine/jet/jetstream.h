// The format of the pipe from the reader of old planners to the program. Both sides include this; it includes nothing
// else of ours. docs/old-planners.md describes the format byte by byte.
#pragma once

#include <cstdint>

namespace jetstream {
// A frame is the size of its content (four bytes), its kind (one byte) and the content. Numbers are little-endian. A
// text or value is its size in four bytes and its bytes; a null value is NullSize alone.
enum Kind : std::uint8_t
{
    Head = 1,    // version (one byte: 0 Jet 3, 1 Jet 4), code page (two bytes)
    Table = 2,   // name, number of columns (two bytes); for each its type (one byte), size (two bytes), name
    Row = 3,     // a value for each column, as in the file; long values whole
    End = 4,     // empty; without it the stream is incomplete
    Refusal = 5, // a Reason (one byte); the last frame
};

enum Reason : std::uint8_t
{
    Unreadable = 1, // not a Jet database of a known version
    Password = 2,
    Encoded = 3, // by another key than the one in the file
    Damaged = 4,
    Unprotected = 5, // the reader could not restrict its own rights
};

inline constexpr std::uint32_t NullSize = 0xFFFFFFFF;

// Column types that planners use or may have used.
enum Type : std::uint8_t
{
    Boolean = 1, // one byte
    Byte = 2,
    Integer = 3, // two bytes
    Long = 4,    // four bytes
    Money = 5,   // eight bytes, ten-thousandths
    Single = 6,
    Double = 7,
    Date = 8, // a double, days since 1899-12-30
    Text = 10,
    Memo = 12,
};
} // namespace jetstream
