#include "platform/engine/sqlite/onlinecopy.h"

#include "platform/engine/damage.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Column.h>

#include <sqlite3.h>

namespace {
constexpr int PagesOfStep = 2000;
constexpr int LongestCopy = 60000; // milliseconds
constexpr int Attempts = 40;
constexpr unsigned long BetweenAttempts = 50; // milliseconds

// The library begins anew whenever another program has written meanwhile, which may be for ever.
void CopyPages(SQLite::Database& source, SQLite::Database& target)
{
    SQLite::Backup backup(target, source);
    const QDeadlineTimer wholeCopy(LongestCopy);
    int attempt = 0, result = SQLITE_OK;
    while (result != SQLITE_DONE) {
        result = backup.executeStep(PagesOfStep);
        const bool isHeldUp = result == SQLITE_BUSY || result == SQLITE_LOCKED;
        if ((isHeldUp && ++attempt > Attempts) || (result != SQLITE_DONE && wholeCopy.hasExpired()))
            throw RunTimeError{engineerrors::CouldNotSave, u"Others keep the planner from being copied."_s};
        if (isHeldUp) QThread::msleep(BetweenAttempts);
    }
}

// It may be what somebody's notes are brought back from, long after the planner itself was damaged.
bool IsSound(SQLite::Database& copy)
{
    try {
        return copy.execAndGet("PRAGMA integrity_check(1)").getString() == "ok";
    } catch (const SQLite::Exception& error) {
        if (IsDamage(error)) return false;
        throw;
    }
}
} // namespace

void CopyOnline(SqliteConnection& source, const QString& path, const QString& to)
{
    const ScratchFile fresh(to + ".new"_L1, wholefiles::StatusOf(path));
    try {
        SQLite::Database target(QFile::encodeName(fresh.Path()).toStdString(), SQLite::OPEN_READWRITE);
        target.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF"); // nobody sees it before it is whole
        CopyPages(source.Library(), target);
        if (!IsSound(target)) {
            damage::Tell(path);
            throw RunTimeError{
                engineerrors::NotADatabase,
                u"The planner '%1' is damaged. No copy was made of it."_s.arg(QFileInfo(path).fileName())};
        }
    } catch (const SQLite::Exception& error) {
        throw RunTimeErrorOf(error, Doing::Writing, QFileInfo(to).fileName());
    }
    wholefiles::Sync(fresh.Path());
    wholefiles::Rename(fresh.Path(), to);
    wholefiles::SyncFolderOf(to);
}
