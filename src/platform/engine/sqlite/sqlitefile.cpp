#include "platform/engine/sqlite/sqlitefile.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sqlite/sqlitestore.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "platform/runtime/runtimeerror.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

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
} // namespace

namespace sqlitefile {
std::shared_ptr<Store> Open(const QString& path, bool exclusive)
{
    StatusOfFile(path);
    return std::make_shared<SqliteStore>(RealPath(path), exclusive, SqliteStore::File::Planner);
}

std::shared_ptr<Store> Create(const QString& path)
{
    // The library cannot be told to make a file only if there is none, and nothing may ever be truncated.
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
    // The planner first: a journal without a planner means nothing, a planner without its journal may be torn.
    if (!Unlink(real)) Raise(DeleteMeanings, real, errno);
    Unlink(JournalOf(real));
}
} // namespace sqlitefile
