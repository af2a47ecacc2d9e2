#include "rawplanner.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

namespace {
// A floor must do its work, so a failed call ends the run.
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
    m_insert = Prepare(R"(INSERT INTO "QMT Table" ("qmtDate", "qmtText") VALUES (?1, ?2))");
    m_like = Prepare(R"(SELECT "qmtDate", "qmtText" FROM "QMT Table" WHERE "qmtDate" > ?1 AND "qmtText" LIKE ?2
                        ORDER BY "qmtDate" LIMIT 1)");
}

RawPlanner::~RawPlanner()
{
    sqlite3_finalize(m_find);
    sqlite3_finalize(m_replace);
    sqlite3_finalize(m_insert);
    sqlite3_finalize(m_alarms);
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

int RawPlanner::CountLike(const QByteArray& like)
{
    sqlite3_stmt* const all = Prepare(R"(SELECT "qmtDate", "qmtText" FROM "QMT Table" WHERE "qmtText" LIKE ?1)");
    BindText(all, 1, like);
    int count = 0;
    for (; sqlite3_step(all) == SQLITE_ROW; ++count)
        Check(sqlite3_column_text(all, 0) && sqlite3_column_text(all, 1), m_database);
    sqlite3_finalize(all);
    return count;
}

void RawPlanner::Write(const QStringList& keys, const std::vector<QByteArray>& notes)
{
    Execute("BEGIN IMMEDIATE");
    for (qsizetype i = 0; i < keys.size(); ++i) {
        Run(m_replace, keys[i].toUtf8(), notes[std::size_t(i)]);
    }
    Execute("COMMIT");
}

void RawPlanner::Run(sqlite3_stmt* statement, const QByteArray& date, const QByteArray& note)
{
    BindText(statement, 1, date);
    BindText(statement, 2, note);
    Check(sqlite3_step(statement) == SQLITE_DONE && sqlite3_changes(m_database) == 1, m_database);
    sqlite3_reset(statement);
}

void RawPlanner::AddEvent()
{
    Execute(R"(INSERT INTO "Recursion Table" ("Start Date", "End Date", "Frequency", "Recursion Text")
               VALUES ('2000/1/1', '2009/12/31', 'DAILY', 'Recurring'))");
}

bool RawPlanner::Finds(const QByteArray& date)
{
    BindText(m_find, 1, date);
    const bool found = sqlite3_step(m_find) == SQLITE_ROW;
    sqlite3_reset(m_find);
    return found;
}

void RawPlanner::Put(const QStringList& keys, const std::vector<QByteArray>& notes)
{
    Execute("BEGIN IMMEDIATE");
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const QByteArray date = keys[i].toUtf8();
        Run(Finds(date) ? m_replace : m_insert, date, notes[std::size_t(i)]);
    }
    Execute("COMMIT");
}

bool RawPlanner::HasAlarm(const QString& date, const QString& time)
{
    // Prepared on first use: other rows' planners have no alarms.
    if (m_alarms == nullptr) {
        m_alarms = Prepare(R"(SELECT "Alarm Time" FROM "Alarm Table" WHERE "Alarm Date" = ?1)");
    }
    const QByteArray wantedDate = date.toUtf8(), wantedTime = time.toUtf8();
    bool found = false;
    int seen = 0;
    BindText(m_alarms, 1, wantedDate);
    for (; !found && sqlite3_step(m_alarms) == SQLITE_ROW; ++seen)
        found = wantedTime == reinterpret_cast<const char*>(sqlite3_column_text(m_alarms, 0));
    sqlite3_reset(m_alarms);
    Check(seen > 0, m_database);
    return found;
}

int RawPlanner::CountAlarms()
{
    sqlite3_stmt* const all = Prepare(R"(SELECT "Alarm Date", "Alarm Time" FROM "Alarm Table")");
    int count = 0;
    for (; sqlite3_step(all) == SQLITE_ROW; ++count) {
        sqlite3_column_text(all, 0);
        sqlite3_column_text(all, 1);
    }
    sqlite3_finalize(all);
    return count;
}
