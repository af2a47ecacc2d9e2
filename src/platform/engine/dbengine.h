// Making, opening and keeping databases. Paths are real ones (platform/desktop/filesystem.h finds them). What a kind of
// planner cannot do raises NotSupported with a text that says why.
#pragma once

#include "platform/engine/database.h"
#include "platform/engine/repairreport.h"

namespace DBEngine {
using ::RepairReport;

inline constexpr int dbFreeLocks = 1;
inline constexpr int dbRefreshCache = 8;

// Makes an empty database and opens it, not exclusively. FileExists; InvalidPath or InputOutput if it cannot be
// made.
Database CreateDatabase(const QString& path, const QString& locale);

// FileNotFound; NotADatabase if it is none of this program's, or damaged at its head; ReadOnlyFile; NoLocks; InUse if
// the open modes exclude each other: the text names user and machine where they are known. Exclusive and shared opens
// exclude each other at once between processes; two shared ones do not. Within one process a second open changes the
// mode to its own, so that a planner can be opened again another way while its first objects still live. An open that
// fails leaves the file, and what this process has open of it, as it was.
Database OpenDatabase(const QString& path, bool exclusive = false);

// Deletes a database with its journal, if nobody, this program included, has it open (InUse). FileNotFound,
// ReadOnlyFile, InputOutput.
void DeleteDatabase(const QString& path);

// While it lives nobody, this program included, can open the planner. The three calls below claim their planner by
// themselves; this keeps the claim from one to the next, so that no note can be written in between. InUse,
// FileNotFound, NoLocks.
class AloneWith
{
public:
    explicit AloneWith(const QString& path);

private:
    std::shared_ptr<void> m_claim;
};

// Makes `to` a new planner with all that is in `from`, ids and the next free id included, without its free room, on the
// disk, and with its mode and, where they can be given, its owner and group. FileExists if `to` exists, InvalidPath if
// its folder does not, InUse if anybody has `from` open, else the errors of OpenDatabase; NotADatabase where a full
// check of `from` finds damage, since nothing may be left out in silence; DiskFull, InputOutput. After an error there
// is no `to`, and `from` is as it was. A file of the older engine (docs/old-planners.md) is converted: of the given
// tables, the first of which makes it a planner, all that are there. Gives the names of those that are not; none for
// others.
QStringList CompactDatabase(const QString& from, const QString& to, const std::vector<TableDef>& tables = {});

// Puts a planner that nobody has open, such as Compact makes, into the place of another and deletes it. The folders may
// lie on different drives. The target keeps its mode and owner; whatever ends the program meanwhile, it is either the
// old planner or the new one, whole. InUse, FileNotFound, NotADatabase, ReadOnlyFile, DiskFull, InputOutput: then both
// are as they were. A target of the older engine is kept beside it; gives its path then, and nothing for others.
QString ReplaceDatabase(const QString& scratch, const QString& target);

// Repairs a planner in place. An undamaged one is left as it is. Else all rows that can still be read are put into a
// new planner, and the damaged one is kept beside it under a free name. The tables are those that the caller expects: a
// planner's own schema comes first, and they stand in for what is lost of it. InUse if anybody has it open;
// FileNotFound, ReadOnlyFile, DiskFull, InputOutput; NotADatabase if it is no planner, or one from a newer program, or
// nothing in it can be read. After an error it is as it was; whatever ends the program meanwhile, it is the old planner
// or the repaired one, whole.
RepairReport RepairDatabase(const QString& path, const std::vector<TableDef>& tables = {});

// What a message says of a file that was refused as no planner (NotADatabase): that it is a damaged one, if its name
// ends in .mdb and Repair would find something in it; all of it is read for that. Else the error itself. The tables are
// those that Repair would expect.
RunTimeError Explained(const RunTimeError& error, const QString& path, const std::vector<TableDef>& tables);

// Moves a planner from its file to a server: all rows of all tables, in one transaction, read back and compared. The
// URI names a database and the planner's name in it (docs/planner-file.md). The file then is a link to it, and the old
// one lies beside it as NAME.bak. InUse if anybody has the planner open; NotADatabase for a URI that cannot be used,
// one with a password above all; FileExists if the database has a planner of this name; BrokenConnection; ReadOnlyFile
// without permission; else the errors of OpenDatabase. After an error all is as it was.
void MoveToServer(const QString& path, const QString& uri);

// Where a link leads, as MoveToServer takes it; empty for a planner that lies in its file. Nothing is connected.
// FileNotFound, NotADatabase.
QString LinkedAddress(const QString& path);
// Host and port, and how one logs in there: a link that asks for less protection leads to another server. NotADatabase
QString ServerOf(const QString& uri);

// dbFreeLocks and dbRefreshCache: lets the engine see what others have committed. Never touches a pending edit.
void Idle(int action);

// Put around every store that is opened from now on; a test's store fails at a chosen call. Null takes it away.
using StoreWrapper = std::function<std::shared_ptr<Store>(std::shared_ptr<Store>)>;
void SetStoreWrapperForTests(StoreWrapper wrapper);
} // namespace DBEngine
