#include "platform/engine/moving.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/postgres/postgresstore.h"
#include "platform/engine/sqlite/sqlitefile.h"
#include "platform/engine/sqlite/sqlitestore.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>

namespace {
using namespace engineerrors;
using namespace wholefiles;

void Copy(Store& from, Store& to)
{
    for (const QString& name : from.TableNames()) {
        const TableDef table = from.Definition(name);
        to.CreateTable(table);
        for (auto rows = from.Page(table, 0); !rows.empty(); rows = from.Page(table, rows.back().id))
            to.InsertAll(table, rows);
    }
}

bool AreAlike(Store& a, Store& b, const TableDef& table)
{
    auto ours = a.Page(table, 0), theirs = b.Page(table, 0);
    while (!ours.empty() && std::ranges::equal(ours, theirs, {}, &Store::Row::values, &Store::Row::values)) {
        ours = a.Page(table, ours.back().id);
        theirs = b.Page(table, theirs.back().id);
    }
    return ours.empty() && theirs.empty();
}

// Row by row, read back from both.
void Compare(Store& from, Store& to)
{
    const QStringList names = from.TableNames();
    bool alike = names == to.TableNames();
    for (const QString& name : names)
        alike = alike && AreAlike(from, to, from.Definition(name));
    if (!alike) throw RunTimeError{InputOutput, u"What was copied is not what was read back."_s};
}

// Within a write of the second.
void CopyAndCompare(Store& from, Store& to)
{
    from.BeginRead(); // one state of all tables, whatever others do meanwhile
    const auto endRead = qScopeGuard([&] { from.EndRead(); });
    Copy(from, to);
    Compare(from, to);
}

// The old planner is whole under its own name or the other one at any moment.
void ReplaceByLink(const QString& planner, const QByteArray& linkText)
{
    const struct stat status = StatusOf(planner);
    const ScratchFile link(planner + ".new"_L1, status);
    Fill(link.Path(), linkText);
    const QString backup = FreeBackupOf(planner);
    CopyToFree(planner, backup, status);
    auto removeBackup = qScopeGuard([&] { Unlink(backup); });
    SyncFolderOf(planner);
    const LibraryLock others(planner);
    PutInPlace(link.Path(), planner);
    removeBackup.dismiss();
}
} // namespace

namespace moving {
void ToServer(const QString& path, const PlannerAddress& address, const QByteArray& link)
{
    const auto claim = sqlitefile::ClaimPlanner(path);
    const QString planner = RealPath(path);
    PostgresStore server(address, QFileInfo(path).fileName(), true, PostgresStore::Planner::New);
    {
        SqliteStore file(planner, true, SqliteStore::File::Claimed);
        server.BeginWrite();
        auto rollback = qScopeGuard([&] { server.Rollback(); });
        CopyAndCompare(file, server);
        rollback.dismiss();
        server.Commit();
    }
    auto undo = qScopeGuard([&] {
        try {
            server.BeginWrite();
            server.DropPlanner();
            server.Commit();
        } catch (const RunTimeError&) {
            server.Rollback(); // a second attempt finds a planner of this name
        }
    });
    ReplaceByLink(planner, link);
    undo.dismiss();
}

void ToFile(Store& from, const QString& path)
{
    sqlitefile::CreateFilled(path, [&](Store& file) { CopyAndCompare(from, file); });
}
} // namespace moving
