#include "platform/engine/moving.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"
#include "platform/engine/pages.h"
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

// All rows of all tables go from one store to another, and are read back and compared. Call it within a write of the
// second store.
class Transfer
{
public:
    Transfer(Store& from, Store& to) : m_from(from), m_to(to) {}

    void Run()
    {
        m_from.BeginRead(); // all tables in one state, whatever others write meanwhile
        const auto endRead = qScopeGuard([this] { m_from.EndRead(); });
        for (const QString& name : m_from.TableNames())
            m_tables.push_back(m_from.Definition(name));
        for (const TableDef& table : m_tables)
            m_all += 2 * LastId(m_from, table);
        for (const TableDef& table : m_tables)
            Copy(table);
        if (m_from.TableNames() != m_to.TableNames()) RaiseDifferent();
        for (const TableDef& table : m_tables)
            Compare(table);
    }

private:
    template <typename Step>
    void Walk(const TableDef& table, Step&& step)
    {
        const qint64 before = m_done;
        ForPages(m_from, table, [&](const std::vector<Store::Row>& page, int rows) {
            step(page, rows);
            m_done = before + page.back().id;
            longwork::Reached(m_done, m_all);
        });
    }
    void Copy(const TableDef& table)
    {
        m_to.CreateTable(table);
        Walk(table, [&](const std::vector<Store::Row>& page, int) { m_to.InsertAll(table, page); });
    }
    void Compare(const TableDef& table)
    {
        qint64 last = 0; // the copies have new ids
        Walk(table, [&](const std::vector<Store::Row>& page, int rows) {
            const auto copies = m_to.Page(table, last, rows);
            if (!std::ranges::equal(page, copies, {}, &Store::Row::values, &Store::Row::values)) RaiseDifferent();
            last = copies.back().id;
        });
        if (!m_to.Page(table, last, 1).empty()) RaiseDifferent();
    }
    [[noreturn]] static void RaiseDifferent()
    {
        throw RunTimeError{InputOutput, u"What was copied is not what was read back."_s};
    }

    Store& m_from;
    Store& m_to;
    std::vector<TableDef> m_tables;
    qint64 m_all = 0, m_done = 0; // by the ids, once for each walk
};

// At any moment the old planner is whole, under its own name or the backup's.
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
        Transfer(file, server).Run();
        rollback.dismiss();
        server.Commit();
    }
    auto undo = qScopeGuard([&] {
        try {
            server.BeginWrite();
            server.DropPlanner();
            server.Commit();
        } catch (const RunTimeError&) {
            server.Rollback(); // the second attempt raises FileExists
        }
    });
    ReplaceByLink(planner, link);
    undo.dismiss();
}

void ToFile(Store& from, const QString& path)
{
    sqlitefile::CreateFilled(path, [&](Store& file) { Transfer(from, file).Run(); });
}
} // namespace moving
