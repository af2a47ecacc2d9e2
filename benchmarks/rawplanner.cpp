#include "rawplanner.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

namespace {
// A floor that did nothing would be no floor.
void Check(bool holds, sqlite3* database)
{
    if (holds) return;
    std::fprintf(stderr, "the raw planner failed: %s\n", sqlite3_errmsg(database));
    std::exit(1);
}

void BindText(sqlite3_stmt* statement, int number, const QByteArray& text)
{
    sqlite3_bind_text(statement, number, text.constData(), int(text.size()), SQLITE_STATIC);
}
} // namespace

RawPlanner::RawPlanner(const QString& path, Locking locking)
{
    const QByteArray name = QFile::encodeName(path);
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    Check(sqlite3_open_v2(name.constData(), &m_database, flags, nullptr) == SQLITE_OK, m_database);
    Execute("PRAGMA synchronous = EXTRA; PRAGMA journal_mode = PERSIST; PRAGMA busy_timeout = 1000");
    if (locking == Locking::Exclusive) Execute("PRAGMA locking_mode = EXCLUSIVE");
    m_find = Prepare(R"(SELECT "qmtText" FROM "QMT Table" WHERE "qmtDate" = ?1)");
    m_replace = Prepare(R"(UPDATE "QMT Table" SET "qmtText" = ?2 WHERE "qmtDate" = ?1)");
    m_like = Prepare(R"(SELECT "qmtDate", "qmtText" FROM "QMT Table" WHERE "qmtDate" > ?1 AND "qmtText" LIKE ?2
                        ORDER BY "qmtDate" LIMIT 1)");
}

RawPlanner::~RawPlanner()
{
    sqlite3_finalize(m_find);
    sqlite3_finalize(m_replace);
    sqlite3_finalize(m_like);
    sqlite3_close(m_database);
}

sqlite3_stmt* RawPlanner::Prepare(const char* text)
{
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(m_database, text, -1, &statement, nullptr) == SQLITE_OK, m_database);
    return statement;
}

void RawPlanner::Execute(const char* text)
{
    Check(sqlite3_exec(m_database, text, nullptr, nullptr, nullptr) == SQLITE_OK, m_database);
}

std::vector<QByteArray> RawPlanner::Read(const QStringList& keys)
{
    std::vector<QByteArray> notes;
    Execute("BEGIN");
    for (const QString& key : keys) {
        const QByteArray date = key.toUtf8();
        BindText(m_find, 1, date);
        Check(sqlite3_step(m_find) == SQLITE_ROW, m_database);
        notes.emplace_back(static_cast<const char*>(sqlite3_column_blob(m_find, 0)), sqlite3_column_bytes(m_find, 0));
        sqlite3_reset(m_find);
    }
    Execute("COMMIT");
    return notes;
}

QString RawPlanner::FindLike(const QByteArray& like, const QString& behind)
{
    const QByteArray date = behind.toUtf8();
    BindText(m_like, 1, date);
    BindText(m_like, 2, like);
    const int step = sqlite3_step(m_like);
    Check(step == SQLITE_ROW || step == SQLITE_DONE, m_database);
    QString found;
    if (step == SQLITE_ROW) found = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_like, 0)));
    sqlite3_reset(m_like);
    return found;
}

void RawPlanner::Write(const QStringList& keys, const std::vector<QByteArray>& notes)
{
    Execute("BEGIN IMMEDIATE");
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const QByteArray date = keys[i].toUtf8();
        BindText(m_replace, 1, date);
        BindText(m_replace, 2, notes[std::size_t(i)]);
        Check(sqlite3_step(m_replace) == SQLITE_DONE && sqlite3_changes(m_database) == 1, m_database);
        sqlite3_reset(m_replace);
    }
    Execute("COMMIT");
}
