#include "platform/engine/sqlite/sqliteconnection.h"

#include "platform/engine/damage.h"
#include "platform/engine/enginerefusals.h"
#include "platform/engine/sqlite/endable.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/sqlitedialect.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <SQLiteCpp/Column.h>

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace {
using namespace engineerrors;
using wholefiles::JournalOf;

constexpr int BusyTimeout = 1500; // milliseconds that a person waits

bool MayWrite(const QString& path)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

// Writing needs a journal in the planner's folder. The check finds a read-only mount for root too.
bool CanKeepJournal(const QString& path)
{
    if (MayWrite(JournalOf(path))) return true;
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    return ::faccessat(AT_FDCWD, folder.constData(), W_OK | X_OK, AT_EACCESS) == 0;
}

RunTimeError ReadOnlyError(const QString& name)
{
    return {ReadOnlyFile, u"Could not write '%1': the file or its folder is read-only."_s.arg(name)};
}

SQLite::Database Open(const QString& path, const QString& name, bool mayWrite)
{
    try {
        // Without CREATE, since a new empty file would pass for an empty planner.
        return SQLite::Database(QFile::encodeName(path).toStdString(),
                                (mayWrite ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY) | SQLite::OPEN_NOMUTEX);
    } catch (const SQLite::Exception& error) {
        throw RunTimeErrorOf(error, Doing::Reading, name);
    }
}
} // namespace

SqliteConnection::SqliteConnection(const QString& path, bool mayWrite)
    : SqlConnection(sqlite::Dialect, QFileInfo(path).fileName()), m_path(path), m_database(Open(path, m_name, mayWrite))
{
    // The file may come from anywhere. Nothing in its schema may run with this program's rights.
    m_database.tryExec("PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON");
}

void SqliteConnection::CheckUnlocked()
{
    CheckWritable();
    try {
        CheckOwnership();
    } catch (const SQLite::Exception& error) {
        if (error.getErrorCode() != SQLITE_BUSY) throw RunTimeErrorOf(error, Doing::Reading, m_name);
    }
}

void SqliteConnection::CheckWritable() const
{
    if (sqlite3_db_readonly(m_database.getHandle(), "main") != 1 && CanKeepJournal(m_path)) return;
    throw ReadOnlyError(m_name);
}

// To the library, a read-only journal looks like a failing disk.
RunTimeError SqliteConnection::ErrorOf(const SQLite::Exception& error) const
{
    const RunTimeError found = RunTimeErrorOf(error, m_writing ? Doing::Writing : Doing::Reading, m_name);
    const bool isRefused = QFileInfo::exists(JournalOf(m_path)) && !MayWrite(JournalOf(m_path));
    return found.Number == InputOutput && isRefused ? ReadOnlyError(m_name) : found;
}

RunTimeError SqliteConnection::Failure(const SQLite::Exception& error)
{
    const RunTimeError failure = ErrorOf(error);
    if (IsDamage(error)) damage::Tell(m_path);
    // A month has 70 look-ups. If each waited for a colleague whose computer hangs, the window would stand for minutes.
    if (IsBusy(error) && IsInRead()) m_database.setBusyTimeout(0);
    StopReading();
    if (m_writing && !HasTransaction() && !m_lost) m_lost = failure;
    return failure;
}

// Also reads the schema, which shows whether pages are missing at the end.
void SqliteConnection::CheckOwnership()
{
    const int id = m_database.execAndGet("PRAGMA application_id").getInt();
    const int version = m_database.execAndGet("PRAGMA user_version").getInt();
    m_database.execAndGet("SELECT count(*) FROM sqlite_schema");
    if (id != plannerformat::ApplicationId || version < 1) throw engineerrors::ErrorOf(NoPlanner, m_name);
    if (version > plannerformat::Version) throw engineerrors::ErrorOf(NewerPlanner, m_name);
}

void SqliteConnection::CheckHead()
{
    Prepare();
    Do([this] { CheckOwnership(); });
}

void SqliteConnection::SetUp()
{
    // EXTRA also syncs the folder: otherwise a power cut could bring back a journal that undoes a commit. PERSIST makes
    // no new file and so needs the folder least. Other programs on a network drive rule out WAL.
    Ask(u"PRAGMA synchronous = EXTRA"_s);
    if (AskOne(u"PRAGMA journal_mode = PERSIST"_s).toByteArray() != "persist")
        throw RunTimeError{InUse, u"Could not use '%1'; another program has it open."_s.arg(m_name)};
}

void SqliteConnection::CheckWhole()
{
    CheckHead();
    const Endable endable(m_database);
    Do([this] {
        if (m_database.execAndGet("PRAGMA integrity_check(1)").getString() != "ok")
            throw SQLite::Exception("integrity_check", SQLITE_CORRUPT);
    });
}

void SqliteConnection::WriteEmptyPlanner()
{
    Write([this] {
        Ask(u"PRAGMA application_id = %1"_s.arg(plannerformat::ApplicationId));
        Ask(u"PRAGMA user_version = %1"_s.arg(plannerformat::Version));
    });
}

void SqliteConnection::KeepWhole(bool whole)
{
    // The library releases its locks at its next access to the file.
    m_database.tryExec(whole ? "PRAGMA locking_mode = EXCLUSIVE"
                             : "PRAGMA locking_mode = NORMAL; SELECT count(*) FROM sqlite_schema");
}

// SQLite checks this only when it opens the journal, and an exclusive planner keeps its journal open. Notes would go
// into a file that nobody finds again.
void SqliteConnection::RefuseIfMoved()
{
    int moved = 0;
    if (sqlite3_file_control(m_database.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved)
        throw RunTimeError{InputOutput, u"The planner '%1' has been moved or deleted while it was open."_s.arg(m_name)};
}

void SqliteConnection::Prepare()
{
    if (m_writing) return;
    waiting::Before();
    if (!IsInRead()) m_database.setBusyTimeout(waiting::NotForOthers::IsOn() ? 0 : BusyTimeout);
}

void SqliteConnection::PrepareWrite()
{
    waiting::Before();
    m_database.setBusyTimeout(BusyTimeout);
    RefuseIfMoved();
}

SqlRows SqliteConnection::Run(const QString& statement, const SqlValues& values, Patience)
{
    return Do([&] {
        auto kept = m_statements.find(statement);
        if (kept == m_statements.end())
            kept = m_statements.emplace(statement, SQLite::Statement(m_database, statement.toStdString())).first;
        return sqlite::Ask(kept->second, values);
    });
}

// A failed sync of the journal can lose its bytes. The rollback then finds no pages to restore, and the ones in memory
// stay as the lost write has made them. The next write would mix them with the pages in the file.
void SqliteConnection::ForgetPages()
{
    m_database.tryExec("PRAGMA shrink_memory");
}

bool SqliteConnection::HasTransaction() const
{
    return sqlite3_get_autocommit(m_database.getHandle()) == 0;
}
