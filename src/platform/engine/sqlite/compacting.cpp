#include "platform/engine/sqlite/compacting.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sql/sqlcatalog.h"
#include "platform/engine/sql/sqltext.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/sqlitedialect.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/Statement.h>

namespace {
using namespace engineerrors;
using namespace wholefiles;

// Every table with its number of rows, and every number that ids go on from.
QStringList Inventory(SqliteConnection& connection)
{
    const auto ask = [&](const QString& statement, const SqlValues& values) {
        return connection.Ask(statement, values);
    };
    QStringList lines;
    for (const SqlCatalog::Table& table : SqlCatalog(sqlite::Dialect, {}, ask).Tables())
        lines += u"%1: "_s.arg(table.name) +
                 connection.AskOne("SELECT count(*) FROM "_L1 + SqlText::Quoted(table.name)).toString();
    if (connection.AskOne(u"SELECT count(*) FROM sqlite_schema WHERE name = 'sqlite_sequence'"_s).toInt() == 0)
        return lines;
    for (const SqlRow& row : connection.Ask(u"SELECT name, seq FROM sqlite_sequence ORDER BY name"_s))
        lines += u"%1 at "_s.arg(row.Text(0)) + row[1].toString();
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
    source.SetUp();
    source.CheckWhole(); // a journal that a crash left is played back by this
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
    SqliteConnection(to).CheckWhole();
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
