// The open planner: its path, its mode, its tables with their index set. Comments name the writers.
#pragma once

#include "platform/engine/dbengine.h"

#include <QDateTime>
#include <QString>

extern QString g_sDBPath;     // lower-cased path; empty while no planner is open; after a New that must not replace a
                              // file, that file's path; opening, creating, recent list
extern QString g_sDBTitle;    // lower-cased file name; opening and creating
extern QString g_sNotesFile;  // real path of the planner behind g_rsQMT; AdoptPlanner
extern bool g_bDBShared;      // a workgroup's planner: a day must be locked before it is edited; subSetNetworkMode
extern Database g_dbPlanner;  // AdoptPlanner
extern Recordset g_rsQMT;     // "QMT Table": the notes; AdoptPlanner
extern Recordset g_rsAlarm;   // "Alarm Table"; opening, creating, the alarm window
extern Recordset g_rsRecurse; // "Recursion Table"; opening, creating, the recurrence window
extern Recordset g_rsFind;    // the notes again, nothing between two searches; word search
extern bool g_bExitSaved;     // the exit has saved; subExitProgram
extern QString g_sDamageTold; // planner whose damage was reported; WatchForDamage

// The last check for the day's backup, so that later saves need none. A failed one is repeated after a while.
struct BackupLook
{
    QString planner;
    QDate day;
    QDateTime nextTry; // after a failure
    QString trouble;
};
extern BackupLook g_lastLook; // BackUpBeforeSave

inline bool HasPlanner()
{
    return !g_sDBPath.isEmpty();
}

// Replaces the open planner. The former one's tables are dropped, so that they do not keep its file open.
void AdoptPlanner(const Database& database, const Recordset& notes, const QString& file);

void ResetPlannerStateForTests();
