#include "platform/engine/jet/jetfile.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/jet/jeterrors.h"
#include "platform/engine/jet/jetrows.h"
#include "platform/engine/longwork.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/sqlitefile.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/engine/store.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>
#include <QScopeGuard>

namespace {
using namespace engineerrors;
using namespace wholefiles;

constexpr QByteArrayView Mark("\0\1\0\0Standard Jet DB\0", 20);

void Write(Store& to, JetRows&& from, const QString& name)
{
    try {
        while (const TableDef* table = from.NextTable()) {
            to.CreateTable(*table);
            while (const auto row = from.NextRow()) {
                to.Insert(*table, *row);
                from.TellReached();
            }
        }
    } catch (const RunTimeError& error) {
        // The old engine also forbids duplicate names and keys, so the file is damaged.
        if (error.Number == DuplicateKey || error.Number == TableExists) jeterrors::RaiseDamaged(name);
        throw;
    }
}

bool IsAlike(Store& to, JetRows& from, const TableDef& table)
{
    constexpr int Rows = 200;
    for (auto page = to.Page(table, 0, Rows); !page.empty(); page = to.Page(table, page.back().id, Rows)) {
        for (const Store::Row& row : page)
            if (from.NextRow() != row.values) return false;
        from.TellReached();
    }
    return !from.NextRow();
}

// Reads the old file a second time and compares it with the new one.
void Compare(Store& to, JetRows&& from)
{
    int tables = 0;
    const TableDef* table = from.NextTable();
    for (; table && IsAlike(to, from, *table); table = from.NextTable())
        ++tables;
    if (table || tables != to.TableNames().size())
        throw RunTimeError{InputOutput, u"What was converted is not what was read back."_s};
}

QStringList MissingIn(Store& file, const std::vector<TableDef>& expected)
{
    const QStringList names = file.TableNames();
    QStringList missing;
    for (const TableDef& table : expected)
        if (!names.contains(table.Name)) missing += table.Name;
    return missing;
}

// Programs of the older engine lock bytes of the same lock file, all below ours. If one of them had the planner open
// during the replacement, it would go on writing into a deleted file.
std::shared_ptr<ByteLocks> ClaimFromAll(const QString& planner)
{
    auto claim = ClaimAlone(planner);
    if (claim->IsLockedElsewhere(0, plannerformat::OpenModeByte))
        throw RunTimeError{InUse, u"Could not use '%1'; a program of the older engine has it open."_s.arg(
                                      QFileInfo(planner).fileName())};
    return claim;
}

bool IsSameState(const struct stat& a, const struct stat& b)
{
    return a.st_ino == b.st_ino && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
           a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}
} // namespace

namespace jetfile {
bool IsJet(QByteArrayView head)
{
    return head.startsWith(Mark);
}

QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>& expected)
{
    const struct stat before = StatusOfFile(from);
    const QString planner = RealPath(from), name = QFileInfo(from).fileName();
    const auto claim = ClaimFromAll(planner);
    if (!QFileInfo(planner).isWritable())
        throw RunTimeError{ReadOnlyFile, u"You have no permission to write '%1'."_s.arg(name)};
    QStringList missing;
    sqlitefile::CreateFilled(to, [&](Store& file) {
        {
            const longwork::Part part(0, 0.5);
            Write(file, JetRows(planner, expected), name);
        }
        const longwork::Part part(0.5, 1);
        Compare(file, JetRows(planner, expected));
        if (!IsSameState(before, StatusOf(planner)))
            throw RunTimeError{InUse, u"Could not convert '%1'; another program has changed it."_s.arg(name)};
        missing = MissingIn(file, expected);
    });
    return missing;
}

QString Replace(const QString& scratch, const QString& target)
{
    StatusOfFile(scratch);
    const struct stat status = StatusOfFile(target);
    const QString planner = RealPath(target), source = RealPath(scratch);
    const auto claim = ClaimFromAll(planner);
    SqliteConnection(source).CheckHead();
    const ScratchFile fresh(planner + ".new"_L1, status);
    sqlitefile::CopyWhole(source, fresh.Path());
    const QString kept = FreeNameBeside(planner, "old"_L1);
    CopyToFree(planner, kept, status);
    auto removeKept = qScopeGuard([&] { Unlink(kept); });
    SyncFolderOf(kept);
    PutInPlace(fresh.Path(), planner);
    removeKept.dismiss();
    ScratchFile::Remove(source);
    return kept;
}
} // namespace jetfile
