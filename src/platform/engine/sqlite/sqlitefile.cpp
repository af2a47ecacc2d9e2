#include "platform/engine/sqlite/sqlitefile.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sql/sqlcatalog.h"
#include "platform/engine/sql/sqltext.h"
#include "platform/engine/sqlite/endable.h"
#include "platform/engine/sqlite/sqlitedialect.h"
#include "platform/engine/sqlite/sqlitestore.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/runtime/runtimeerror.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QThread>

#include <SQLiteCpp/Statement.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {
using namespace engineerrors;
using namespace wholefiles;

struct FileMeaning
{
    int error;
    int number;
    const char16_t* text;
};

constexpr FileMeaning CreateMeanings[] = {
    {EEXIST, FileExists, u"'%1' exists already."},
    {ENOENT, InvalidPath, u"'%1' cannot be made: its folder does not exist."},
    {ENOTDIR, InvalidPath, u"'%1' cannot be made: its folder does not exist."},
};
constexpr FileMeaning DeleteMeanings[] = {
    {EACCES, ReadOnlyFile, u"You have no permission to delete '%1'."},
    {EPERM, ReadOnlyFile, u"You have no permission to delete '%1'."},
    {EROFS, ReadOnlyFile, u"'%1' cannot be deleted: its drive is read-only."},
};

template <std::size_t Count>
[[noreturn]] void Raise(const FileMeaning (&meanings)[Count], const QString& path, int error)
{
    const QString name = QFileInfo(path).fileName();
    for (const FileMeaning& meaning : meanings)
        if (meaning.error == error) throw RunTimeError{meaning.number, QString::fromUtf16(meaning.text).arg(name)};
    throw RunTimeError{InputOutput, u"'%1': %2."_s.arg(name, QString::fromLocal8Bit(std::strerror(error)))};
}
// The tables with their numbers of rows, and the last ids.
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
        const Endable endable(source.Library());
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

// Of the planner's last change and of its journal's.
QList<qint64> TimesOf(const QString& planner)
{
    QList<qint64> times;
    for (const QString& path : {planner, JournalOf(planner)}) {
        struct stat status = {};
        if (::stat(QFile::encodeName(path).constData(), &status) == 0)
            times += {status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size};
    }
    return times;
}

void RefuseExisting(const QString& to)
{
    if (Exists(to)) throw RunTimeError{FileExists, u"'%1' exists already."_s.arg(to)};
    if (!QFileInfo(to).dir().exists())
        throw RunTimeError{InvalidPath, u"'%1' cannot be made: its folder does not exist."_s.arg(to)};
}
} // namespace

namespace sqlitefile {
std::shared_ptr<Store> Open(const QString& path, bool exclusive)
{
    StatusOfFile(path);
    return std::make_shared<SqliteStore>(RealPath(path), exclusive, SqliteStore::File::Planner);
}

std::shared_ptr<Store> OpenResting(const QString& path)
{
    StatusOfFile(path);
    return std::make_shared<SqliteStore>(RealPath(path), false, SqliteStore::File::Resting);
}

std::shared_ptr<Store> Create(const QString& path)
{
    // The library cannot refuse an existing file, and no file may ever be truncated.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) Raise(CreateMeanings, path, errno);
    ::close(descriptor);
    const QString real = RealPath(path);
    auto remove = qScopeGuard([&] {
        Unlink(real);
        Unlink(JournalOf(real));
    });
    auto store = std::make_shared<SqliteStore>(real, false, SqliteStore::File::Empty);
    remove.dismiss();
    return store;
}

void CreateFilled(const QString& path, const std::function<void(Store&)>& write)
{
    const QString fresh = path + ".new"_L1;
    ScratchFile::Remove(fresh);
    auto remove = qScopeGuard([&] {
        ScratchFile::Remove(fresh);
        Unlink(LockFileOf(fresh));
    });
    if (Exists(path)) Raise(CreateMeanings, path, EEXIST);
    {
        const std::shared_ptr<Store> file = Create(fresh);
        file->BeginWrite();
        auto rollback = qScopeGuard([&] { file->Rollback(); });
        write(*file);
        rollback.dismiss();
        file->Commit();
    }
    Sync(fresh);
    RenameToFree(fresh, path);
    SyncFolderOf(path);
}

std::shared_ptr<void> Claim(const QString& path)
{
    StatusOf(path);
    return ClaimAlone(RealPath(path));
}

std::shared_ptr<void> ClaimPlanner(const QString& path)
{
    StatusOfFile(path);
    SqliteConnection(RealPath(path)).CheckUnlocked();
    return Claim(path);
}

void Delete(const QString& path)
{
    const std::shared_ptr<void> claim = Claim(path);
    const QString real = RealPath(path);
    // Deletes the planner first: a journal without a planner is harmless, a planner without its journal may be torn.
    if (!Unlink(real)) Raise(DeleteMeanings, real, errno);
    Unlink(JournalOf(real));
}

QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>&)
{
    RefuseExisting(to);
    const struct stat status = StatusOfFile(from);
    const QString real = RealPath(from);
    SqliteConnection source(real);
    source.CheckUnlocked(); // before the claim, so that a file that is no planner gets no lock file
    const auto claim = ClaimAlone(real);
    source.RefuseIfMoved();
    source.SetUp();
    constexpr int Steps = 3;
    source.CheckWhole(); // also plays back a journal left by a crash
    longwork::Reached(1, Steps);
    const ScratchFile fresh(to + ".new"_L1, status);
    VacuumInto(source, fresh.Path());
    longwork::Reached(2, Steps);
    CompareWith(source, fresh.Path());
    longwork::Reached(3, Steps);
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

// The library's locks would keep an exclusive planner from being read, but its bytes can be. A write meanwhile shows in
// the times of the files.
void CopyAsItStands(const QString& planner, const QString& to)
{
    constexpr int Attempts = 100;
    constexpr unsigned long BetweenAttempts = 50; // milliseconds
    const struct stat model = StatusOfFile(planner);
    const QString real = RealPath(planner);
    const std::pair<QString, QString> files[] = {{real, to}, {JournalOf(real), JournalOf(to)}};
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (attempt > 0) QThread::msleep(BetweenAttempts);
        const auto before = TimesOf(real);
        for (const auto& [from, copy] : files) {
            Unlink(copy);
            if (Exists(from)) CopyToFree(from, copy, model);
        }
        if (TimesOf(real) == before) return;
    }
    throw RunTimeError{InUse, u"Others write into '%1' all the time."_s.arg(QFileInfo(planner).fileName())};
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
        planner.CheckHead(); // plays back its journal now: the old planner must be whole until the last step
        SqliteConnection(source).CheckHead();
    }
    const ScratchFile fresh(real + ".new"_L1, status);
    CopyWhole(source, fresh.Path());
    const LibraryLock others(real);
    PutInPlace(fresh.Path(), real);
    ScratchFile::Remove(source);
    return {};
}
} // namespace sqlitefile
