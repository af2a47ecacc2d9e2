#include "platform/engine/sqlite/sqlitestore.h"

#include "platform/engine/likepattern.h"
#include "platform/engine/sqlite/onlinecopy.h"
#include "platform/engine/sqlite/sqlitedialect.h"

#include <sqlite3.h>

namespace {
QByteArrayView TextOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text, text ? sqlite3_value_bytes(value) : 0};
}

// matches(text, pattern). The library keeps the pattern that was made ready from row to row, or drops it at once.
void Matches(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const QByteArrayView text = TextOf(arguments[0]);
    const auto answer = [&](const LikePattern& pattern) {
        sqlite3_result_int(context, !text.isNull() && pattern.Matches(text));
    };
    if (const void* kept = sqlite3_get_auxdata(context, 1)) return answer(*static_cast<const LikePattern*>(kept));
    auto made = std::make_unique<LikePattern>(QString::fromUtf8(TextOf(arguments[1])));
    answer(*made);
    sqlite3_set_auxdata(context, 1, made.release(), [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
}
} // namespace

SqliteStore::SqliteStore(const QString& path, bool exclusive, File file) : SqlStore(sqlite::Dialect), m_path(path)
{
    m_connection.emplace(path);
    if (file == File::Claimed) {
        m_connection->SetUp();
        m_connection->CheckHead();
        return;
    }
    // Before any lock, so that no file of locks is left beside something that is no planner.
    if (file == File::Planner) m_connection->CheckUnlocked();
    m_openFile.emplace(path, exclusive, [this](bool whole) { m_connection->KeepWhole(whole); });
    m_connection->RefuseIfMoved(); // by a Compact or Repair that ended just before the lock was ours
    m_connection->SetUp();
    if (file == File::Empty) m_connection->WriteEmptyPlanner();
    m_connection->CheckHead();
    m_locks = LocksBeside(path);
    m_session.emplace(*m_locks);
    m_connection->Do([this] { m_connection->Library().createFunction("matches", 2, true, nullptr, Matches); });
    m_openFile->Settle();
}

void SqliteStore::TryLock(const TableDef& table, qint64 id)
{
    m_session->TakeRecord({NumberOf(table), id});
}

bool SqliteStore::Holds(const TableDef& table, qint64 id) const
{
    return m_session->Holds({KnownNumberOf(table).value_or(0), id});
}

void SqliteStore::Unlock(const TableDef& table, qint64 id)
{
    m_session->GiveBackRecord({KnownNumberOf(table).value_or(0), id});
}

void SqliteStore::BackUp(const QString& path)
{
    CopyOnline(*m_connection, m_path, path);
}

void SqliteStore::Close()
{
    m_connection.reset();
    m_session.reset();
    m_locks.reset();
    m_openFile.reset();
}
