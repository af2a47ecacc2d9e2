// The open planner: where it lies, how it is open, and its tables with their index set.
#pragma once

#include "platform/engine/dbengine.h"

#include <QDateTime>
#include <QString>

extern QString g_sDBPath;     // lower-cased path, empty while no planner is open; after a New that was not to replace a
                              // file it names that file; opening, creating, recent list
extern QString g_sDBTitle;    // lower-cased file name; opening and creating
extern QString g_sNotesFile;  // real path of the planner behind g_rsQMT; AdoptPlanner
extern bool g_bDBShared;      // a workgroup's planner: a day must be locked before it is edited; subSetNetworkMode
extern Database g_dbPlanner;  // AdoptPlanner
extern Recordset g_rsQMT;     // "QMT Table": the notes; AdoptPlanner
extern Recordset g_rsAlarm;   // "Alarm Table"; opening, creating, and the alarm window for its own walk
extern Recordset g_rsRecurse; // "Recursion Table"; opening, creating, and the recurrence window for its own walk
extern Recordset g_rsFind;    // a walk through the notes of its own, no object between two searches; the word search
extern bool g_bExitSaved;     // the exit has saved once; subExitProgram
extern QString g_sDamageTold; // the planner whose damage the person knows of; WatchForDamage

// Of the last look for the day's copy, so that most saves look no more. What failed is tried again after a while.
struct BackupLook
{
    QString planner;
    QDate day;
    QDateTime nextTry; // after one that failed
    QString trouble;
};
extern BackupLook g_lastLook; // BackUpBeforeSave

inline bool HasPlanner()
{
    return !g_sDBPath.isEmpty();
}

// Puts a planner in the place of the one before, whose tables must not answer for it nor keep the old file open.
void AdoptPlanner(const Database& database, const Recordset& notes, const QString& file);

void ResetPlannerStateForTests();
