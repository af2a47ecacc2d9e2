// Every number that lies on the disk: in the planner and in the file of locks beside it. docs/planner-file.md tells
// them byte by byte.
#pragma once

#include <QtGlobal>

#include <sys/types.h>

namespace plannerformat {
inline constexpr int ApplicationId = 0x4F524C50; // "ORLP"
inline constexpr int Version = 1;

// Bytes that are locked hold no data and lie far beyond the end of the file: where locks are mandatory, nobody could
// read them.
inline constexpr off_t OpenModeByte = off_t{1} << 40;

// Held by a living session, whose entry in the file has the same number.
constexpr off_t LifeByte(int session)
{
    return OpenModeByte + 1 + session;
}

// One record of one table; the table's number is that of its row in sqlite_schema.
constexpr off_t RecordByte(qint64 table, qint64 record)
{
    return (off_t{1 + table} << 40) + record;
}
inline constexpr qint64 IdLimit = qint64{1} << 40; // ids of a table are below it, as so many bytes are its own

inline constexpr int MaximalSessions = 4096;
inline constexpr int UserBytes = 80;
inline constexpr int MachineBytes = 104;
inline constexpr int HeldRecords = 4;

// Little-endian. Texts are UTF-8, filled up with zeros. A held record of table 0 is none.
struct HeldRecord
{
    qint64 Table;
    qint64 Record;
};

struct SessionEntry
{
    qint64 Process;
    char User[UserBytes];
    char Machine[MachineBytes];
    HeldRecord Held[HeldRecords];
};
static_assert(sizeof(SessionEntry) == 256);
} // namespace plannerformat
