// Helpers for planners to compact and repair: their rows, read by the library itself, and the pages that hold them.
#pragma once

#include "enginetesting.h"
#include "files.h"

#include <QMap>
#include <QScopeGuard>
#include <QSet>
#include <QTest>

#include <sqlite3.h>

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

// Leaves a journal as a crash does, with many notes changed and half written. What the cache does not hold is written.
inline void CrashWhileSaving(const QString& path, int cachedPages = 5)
{
    sqlite3* library = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &library);
    sqlite3_exec(library,
                 "PRAGMA cache_size = " + QByteArray::number(cachedPages) +
                     "; BEGIN; UPDATE \"QMT Table\" SET qmtText = 'half' || qmtText WHERE qmtDate LIKE '1999%'; "
                     "DELETE FROM \"Alarm Table\"",
                 nullptr, nullptr, nullptr);
    const QByteArray planner = Content(path), journal = Content(path + "-journal"_L1);
    sqlite3_close(library);
    SetContent(path, planner);
    SetContent(path + "-journal"_L1, journal);
}
