#include "platform/engine/sqlite/compacting.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/sqliteschema.h"
#include "platform/engine/sqlite/sqlitevalues.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace {
using namespace engineerrors;
using namespace wholefiles;

// Opens a planner for a full look at it: a journal that a crash left is played back by this.
void SetUpAndCheck(SqliteConnection& connection)
{
    connection.SetUp();
    connection.CheckHead();
    connection.CheckWhole();
}

// Every table with its number of rows, and every number that ids go on from.
QStringList Inventory(SqliteConnection& connection)
{
    QStringList lines;
    connection.Read([&] {
        SQLite::Database& library = connection.Library();
        for (const QString& table : sqliteschema::TableNames(library)) {
            QString name = table;
            const QString count = "SELECT count(*) FROM \"%1\""_L1.arg(name.replace(u'"', "\"\""_L1));
            lines += u"%1: %2"_s.arg(table).arg(library.execAndGet(count.toStdString()).getInt64());
        }
        if (!library.tableExists("sqlite_sequence")) return;
        SQLite::Statement next(library, "SELECT name, seq FROM sqlite_sequence");
        while (next.executeStep())
            lines += u"%1 at %2"_s.arg(TextOf(next.getColumn(0))).arg(next.getColumn(1).getInt64());
    });
    lines.sort();
    return lines;
}

void VacuumInto(SqliteConnection& source, const QString& path)
{
    try {
        SQLite::Statement vacuum(source.Library(), "VACUUM INTO ?");
        vacuum.bind(1, QFile::encodeName(path).toStdString());
        vacuum.exec();
    } catch (const SQLite::Exception& error) {
        throw RunTimeErrorOf(error, Doing::Writing, path);
    }
}

void CompareWith(SqliteConnection& source, const QString& path)
{
    SqliteConnection made(path);
    made.CheckHead();
    made.CheckWhole();
    if (Inventory(made) != Inventory(source))
        throw RunTimeError{InputOutput, u"'%1' has not become a copy."_s.arg(path)};
}

void RefuseExisting(const QString& to)
{
    if (Exists(to)) throw RunTimeError{FileExists, u"'%1' exists already."_s.arg(to)};
    if (!QFileInfo(to).dir().exists())
        throw RunTimeError{InvalidPath, u"'%1' cannot be made: its folder does not exist."_s.arg(to)};
}
} // namespace

namespace compacting {
QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>&)
{
    RefuseExisting(to);
    const struct stat status = StatusOfFile(from);
    const QString real = RealPath(from);
    SqliteConnection source(real);
    source.CheckUnlocked(); // before the claim, so that no file of locks is left beside something that is no planner
    const auto claim = ClaimAlone(real);
    source.RefuseIfMoved();
    SetUpAndCheck(source);
    const ScratchFile fresh(to + ".new"_L1, status);
    VacuumInto(source, fresh.Path());
    CompareWith(source, fresh.Path());
    Sync(fresh.Path());
    RenameToFree(fresh.Path(), to);
    SyncFolderOf(to);
    return {};
}

void CopyWhole(const QString& planner, const QString& to)
{
    CopyInto(planner, to);
    SqliteConnection copy(to);
    copy.CheckHead();
    copy.CheckWhole();
}

QString Replace(const QString& scratch, const QString& target)
{
    StatusOfFile(scratch);
    const struct stat status = StatusOfFile(target);
    const QString real = RealPath(target), source = RealPath(scratch);
    const auto claim = ClaimAlone(real);
    {
        SqliteConnection planner(real);
        planner.SetUp();
        planner.CheckHead(); // its own journal is played back now: the old planner has to be whole until the last step
        SqliteConnection(source).CheckHead();
    }
    const ScratchFile fresh(real + ".new"_L1, status);
    CopyWhole(source, fresh.Path());
    const LibraryLock others(real);
    PutInPlace(fresh.Path(), real);
    ScratchFile::Remove(source);
    return {};
}
} // namespace compacting
