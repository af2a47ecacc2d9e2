#include "platform/engine/sqlite/sqlitestore.h"

#include "platform/engine/damage.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/sqlite/sqlitedialect.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Column.h>

#include <sqlite3.h>

namespace {
QByteArrayView TextOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text, text ? sqlite3_value_bytes(value) : 0};
}

constexpr int PagesOfStep = 2000;
constexpr int LongestCopy = 60000; // milliseconds
constexpr int Attempts = 40;
constexpr unsigned long BetweenAttempts = 50; // milliseconds

// The library starts again whenever another program has written, possibly for ever.
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

// Checks the copy: notes may be restored from it long after the planner was damaged.
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

SqliteStore::SqliteStore(const QString& path, bool exclusive, File file) : SqlStore(sqlite::Dialect), m_path(path)
{
    m_connection.emplace(path, file != File::Resting);
    if (file == File::Resting) {
        m_connection->CheckHead();
        return;
    }
    if (file == File::Claimed) {
        m_connection->SetUp();
        m_connection->CheckHead();
        return;
    }
    // Before any lock, so that a file that is no planner gets no lock file.
    if (file == File::Planner) m_connection->CheckUnlocked();
    m_openFile.emplace(path, exclusive, [this](bool whole) { m_connection->KeepWhole(whole); });
    m_connection->RefuseIfMoved(); // replaced by a Compact or Repair that ended just before our lock
    m_connection->SetUp();
    if (file == File::Empty) m_connection->WriteEmptyPlanner();
    m_connection->CheckHead();
    m_session.emplace(LocksBeside(path));
    m_connection->Do([this] { m_connection->Library().createFunction("matches", 2, true, this, Matches); });
    m_openFile->Settle();
}

// matches(text, pattern). The library may keep the pattern from row to row.
void SqliteStore::Matches(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const QByteArrayView text = TextOf(arguments[0]);
    const auto answer = [&](const LikePattern& pattern) {
        sqlite3_result_int(context, !text.isNull() && pattern.Matches(text));
    };
    if (const void* kept = sqlite3_get_auxdata(context, 1)) return answer(*static_cast<const LikePattern*>(kept));
    auto* const store = static_cast<SqliteStore*>(sqlite3_user_data(context));
    auto made = std::make_unique<LikePattern>(store->PatternOf(QString::fromUtf8(TextOf(arguments[1]))));
    answer(*made);
    sqlite3_set_auxdata(context, 1, made.release(), [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
}

bool SqliteStore::Take(const RecordName& record)
{
    if (!m_session->Take(record)) return false;
    Locks held = Held();
    held.push_back(record);
    m_session->WriteHeld(held);
    return true;
}

void SqliteStore::GiveBack(const RecordName& record)
{
    m_session->GiveBack(record);
    m_session->WriteHeld(Held());
}

// The library's number changes with the commits of others, and its count of written rows with those of this session.
qint64 SqliteStore::Revision()
{
    const qint64 ofOthers = m_connection->AskOne(u"PRAGMA data_version"_s).toLongLong();
    return ofOthers << 32 | sqlite3_total_changes(m_connection->Library().getHandle());
}

// Copies the planner's present state. Meanwhile others can read; their saves wait while a part is copied.
void SqliteStore::BackUp(const QString& path)
{
    const ScratchFile fresh(path + ".new"_L1, wholefiles::StatusOf(m_path));
    try {
        SQLite::Database target(QFile::encodeName(fresh.Path()).toStdString(), SQLite::OPEN_READWRITE);
        target.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF"); // nobody opens it before it is complete
        CopyPages(m_connection->Library(), target);
        if (!IsSound(target)) {
            damage::Tell(m_path);
            throw RunTimeError{
                engineerrors::NotADatabase,
                u"The planner '%1' is damaged. No copy was made of it."_s.arg(QFileInfo(m_path).fileName())};
        }
    } catch (const SQLite::Exception& error) {
        throw RunTimeErrorOf(error, Doing::Writing, QFileInfo(path).fileName());
    }
    wholefiles::Sync(fresh.Path());
    wholefiles::Rename(fresh.Path(), path);
    wholefiles::SyncFolderOf(path);
}

void SqliteStore::Close()
{
    m_connection.reset();
    m_session.reset();
    m_openFile.reset();
}
