// Makes, opens and maintains databases. Paths are exact; platform/desktop/filesystem.h finds them. NotSupported, with
// the reason, if the kind of planner cannot do it.
#pragma once

#include "platform/engine/database.h"
#include "platform/engine/repairreport.h"

namespace DBEngine {
using ::RepairReport;

inline constexpr int dbFreeLocks = 1;
inline constexpr int dbRefreshCache = 8;

// Makes an empty database and opens it shared. FileExists; InvalidPath or InputOutput if it cannot be made.
Database CreateDatabase(const QString& path, const QString& locale);

// FileNotFound; NotADatabase if it is not one of this program's, or its head is damaged; ReadOnlyFile; NoLocks; InUse
// if the open modes exclude each other: the text names user and machine if known. Between processes an exclusive open
// excludes all others; shared ones do not. Within one process a second open changes the mode to its own, so that a
// planner can be opened again in another mode while its first objects still live. A failed open changes neither the
// file nor this process's other opens of it.
Database OpenDatabase(const QString& path, bool exclusive = false);

// Opens a planner for reading only, though others may have it open, even exclusively. A file is read from a copy that
// is made in an empty folder of the caller; nothing is written beside the planner. Errors as OpenDatabase.
Database OpenToRead(const QString& path, const QString& folder);

// Opens a planner file into which nobody writes, such as a backup, where it lies. Nothing is written, in it or beside
// it. One that was left within a write raises ReadOnlyFile, since only a writer may play back its journal.
Database OpenResting(const QString& path);

// Deletes a database and its journal. InUse if anybody, this program included, has it open. FileNotFound, ReadOnlyFile,
// InputOutput.
void DeleteDatabase(const QString& path);

// During its life nobody, this program included, can open the planner. The three calls below claim their planner by
// themselves. This keeps the claim from one call to the next, so that no note can be written in between. InUse,
// FileNotFound, NoLocks.
class AloneWith
{
public:
    explicit AloneWith(const QString& path);

private:
    std::shared_ptr<void> m_claim;
};

// Copies the planner `from` into a new file `to` without its free pages, with all ids and the next free id, synced to
// the disk. `to` gets the mode and, if permitted, the owner and group. FileExists if `to` exists; InvalidPath if its
// folder does not; InUse if anybody has `from` open; else the errors of OpenDatabase. NotADatabase if a full check of
// `from` finds damage, since nothing may be left out silently. DiskFull, InputOutput. After an error `to` does not
// exist and `from` is unchanged. A file of the older engine (docs/old-planners.md) is converted: every given table that
// it has. A file without the first one is no planner. Returns the names of the missing tables; empty for other files.
QStringList CompactDatabase(const QString& from, const QString& to, const std::vector<TableDef>& tables = {});

// Replaces the planner `target` by `scratch`, which nobody has open, and deletes `scratch`. The folders may lie on
// different drives. The target keeps its mode and owner. If the program ends meanwhile, the target is the whole old
// planner or the whole new one. InUse, FileNotFound, NotADatabase, ReadOnlyFile, DiskFull, InputOutput: then both are
// unchanged. A target of the older engine is kept beside it; returns its path then, else nothing.
QString ReplaceDatabase(const QString& scratch, const QString& target);

// Repairs a planner in place. An undamaged one is unchanged. Otherwise all rows that can still be read go into a new
// planner, and the damaged one is kept beside it under a free name. The tables are those that the caller expects; they
// replace lost parts of the planner's own schema. InUse if anybody has it open; FileNotFound, ReadOnlyFile, DiskFull,
// InputOutput; NotADatabase if it is no planner, is one of a newer program, or holds nothing readable. After an error
// it is unchanged. If the program ends meanwhile, it is the whole old planner or the whole repaired one.
RepairReport RepairDatabase(const QString& path, const std::vector<TableDef>& tables = {});

// The error to show for a file refused as no planner (NotADatabase). If its name ends in .mdb and Repair would find
// something in it, the error says that it is a damaged planner; reads the whole file for that. Else the error itself.
// The tables are those for Repair.
RunTimeError Explained(const RunTimeError& error, const QString& path, const std::vector<TableDef>& tables);

// Moves a planner from its file to a server: all rows of all tables in one transaction, read back and compared. The URI
// names a database and the planner's name in it (docs/planner-file.md). Afterwards the file is a link to it, and the
// old file is beside it as NAME.bak. InUse if anybody has the planner open; NotADatabase for an unusable URI, such as
// one with a password; FileExists if the database has a planner of this name; BrokenConnection; ReadOnlyFile without
// permission; else the errors of OpenDatabase. After an error all is unchanged.
void MoveToServer(const QString& path, const QString& uri);

// The URI of a link, as MoveToServer takes it; empty for a planner in a file. Does not connect. FileNotFound,
// NotADatabase.
QString LinkedAddress(const QString& path);
// The server's host and port, and the protection of the log-in: a link with less protection counts as another server.
// NotADatabase.
QString ServerOf(const QString& uri);

// dbFreeLocks and dbRefreshCache: makes commits of others visible. Never changes a pending edit.
void Idle(int action);

// Wraps every store opened from now on, so that a test's store can fail at a chosen call. Null removes the wrapper.
using StoreWrapper = std::function<std::shared_ptr<Store>(std::shared_ptr<Store>)>;
void SetStoreWrapperForTests(StoreWrapper wrapper);
} // namespace DBEngine
