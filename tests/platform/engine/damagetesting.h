// Helpers for planners to compact and repair: their rows, read by the library itself, and the pages that hold them.
#pragma once

#include "enginetesting.h"
#include "files.h"

#include <QMap>
#include <QScopeGuard>
#include <QSet>
#include <QTest>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <sqlite3.h>
#include <unistd.h>

// The columns of each row as bytes.
inline QList<QByteArrayList> Ask(const QString& path, const QByteArray& sql)
{
    sqlite3* library = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &library);
    const auto close = qScopeGuard([&] { sqlite3_close(library); });
    QList<QByteArrayList> rows;
    for (const char* rest = sql.constData(); *rest;) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(library, rest, -1, &statement, &rest) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(library));
        while (sqlite3_step(statement) == SQLITE_ROW) {
            QByteArrayList row;
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, i));
                row += QByteArray(bytes, sqlite3_column_bytes(statement, i));
            }
            rows += row;
        }
        sqlite3_finalize(statement);
    }
    return rows;
}

inline TableDef AlarmTable()
{
    return {u"Alarm Table"_s,
            {{u"Alarm Date"_s, dbText, 15}, {u"Alarm Note"_s, dbMemo}, {u"Silence"_s, dbBoolean}},
            {{u"AlarmKey"_s, u"-Alarm Date"_s, false}}};
}

// By key, with the first letter of the table (note or alarm): the text.
using Notes = QMap<QByteArray, QByteArray>;

inline Notes NotesIn(const QString& path)
{
    Notes notes;
    for (const auto& row : Ask(path, "SELECT 'Q' || \"qmtDate\", \"qmtText\" FROM \"QMT Table\" UNION ALL "
                                     "SELECT 'A' || \"Alarm Date\", \"Alarm Note\" FROM \"Alarm Table\""))
        notes.insert(row[0], row[1]);
    return notes;
}

// The numbers of the pages that hold each note, overflow pages included.
inline QMap<QByteArray, QSet<int>> PagesOfNotes(const QString& path)
{
    QMap<QByteArray, QSet<int>> pages;
    for (const QByteArray& table : {QByteArray("QMT Table"), QByteArray("Alarm Table")}) {
        const QByteArray key = table == "QMT Table" ? "'Q' || qmtDate" : "'A' || \"Alarm Date\"";
        const auto keys = Ask(path, "SELECT " + key + " FROM \"" + table + "\" ORDER BY \"record id\"");
        const QByteArray where = " FROM dbstat WHERE name = '" + table + "' AND pagetype = ";
        QMap<QByteArray, QByteArray> ofCell; // by the cell's path
        qsizetype at = 0;
        for (const auto& leaf : Ask(path, "SELECT path, pageno, ncell" + where + "'leaf' ORDER BY path"))
            for (int cell = 0; cell < leaf[2].toInt(); ++cell, ++at) {
                ofCell[leaf[0] + QByteArray::number(cell, 16).rightJustified(3, '0')] = keys[at][0];
                pages[keys[at][0]].insert(leaf[1].toInt());
            }
        for (const auto& rest : Ask(path, "SELECT path, pageno" + where + "'overflow'"))
            pages[ofCell[rest[0].split('+')[0]]].insert(rest[1].toInt());
    }
    return pages;
}

inline QByteArray NoteText(int day)
{
    const int size = day == 100 ? 300000 : day % 17 == 0 ? 9000 + 777 * day % 20000 : 20 + 131 * day % 1500;
    const QByteArray part = u"{\\rtf1 Grüße, %1. Tag}\n"_s.arg(day).toUtf8();
    return part.repeated(size / static_cast<int>(part.size()) + 1);
}

inline QString DayKey(int day)
{
    return u"%1/%2/%3"_s.arg(1999 + day / 336).arg(day / 28 % 12 + 1).arg(day % 28 + 1);
}

// 400 days, 60 alarms, and free pages that still hold the texts of deleted days.
inline void MakeFullPlanner(const QString& path)
{
    Database database = DBEngine::CreateDatabase(path, {});
    database.Append(DayTable());
    database.Append(AlarmTable());
    Recordset days = Days(database), alarms = database.OpenTable(u"Alarm Table"_s);
    WriteTransaction all(database);
    for (int day = 0; day < 480; ++day)
        Write(days, day < 400 ? DayKey(day) : u"gone%1"_s.arg(day), NoteText(day));
    for (int alarm = 0; alarm < 60; ++alarm) {
        alarms.AddNew();
        alarms.SetField(u"Alarm Date"_s, DayKey(alarm * 3));
        alarms.SetField(u"Alarm Note"_s, NoteText(alarm).left(300));
        alarms.SetField(u"Silence"_s, alarm % 2 == 0);
        alarms.Update();
    }
    all.Commit();
    days.Close();
    alarms.Close();
    database.Close();
    Ask(path, "PRAGMA secure_delete = OFF; DELETE FROM \"QMT Table\" WHERE qmtDate LIKE 'gone%'");
}

// Whether a stopped process is about to make, remove, rename, sync or write a file.
inline bool IsAboutToChangeFiles(pid_t process, int& writes)
{
    __ptrace_syscall_info call = {};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof call, &call);
    if (call.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
    switch (call.entry.nr) {
    case SYS_write:
    case SYS_pwrite64:
        return ++writes % 50 == 0;
#ifdef SYS_rename
    case SYS_rename:
    case SYS_unlink:
#endif
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_unlinkat:
    case SYS_fsync:
    case SYS_fdatasync:
        return true;
    default:
        return false;
    }
}

// Runs the work in a process that is killed just before its nth change. False if it makes fewer.
template <typename Work>
bool KilledBeforeChange(int change, Work&& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(1);
        ::raise(SIGSTOP);
        work();
        ::_exit(0);
    }
    int status = 0, writes = 0;
    ::waitpid(child, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
    while (change > 0 && WIFSTOPPED(status)) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
        if (WIFSTOPPED(status) && IsAboutToChangeFiles(child, writes)) --change;
    }
    if (!WIFSTOPPED(status)) return false;
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return true;
}
