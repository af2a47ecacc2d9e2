// The open planner: where it lies, how it is open, and its tables with their index set.
#pragma once

#include "platform/engine/dbengine.h"

#include <QString>

extern QString g_sDBPath;    // lower-cased path, empty while no planner is open; after a New that came to nothing it
                             // names the file that was to be made; opening, creating, recent list
extern QString g_sDBTitle;   // lower-cased file name; opening and creating
extern QString g_sNotesFile; // real path of the planner behind g_rsQMT; opening and creating
extern bool g_bDBShared;     // a workgroup's planner: a day must be locked before it is edited; subSetNetworkMode
extern Database g_dbPlanner;
extern Recordset g_rsQMT;     // "QMT Table": the notes
extern Recordset g_rsAlarm;   // "Alarm Table"
extern Recordset g_rsRecurse; // "Recursion Table"
extern Recordset g_rsFind;    // a walk through the notes of its own, no object between two searches; the word search,
                              // and emptied where another planner is opened, or it would keep the old one open
extern bool g_bExitSaved;     // the exit has saved once; subExitProgram

inline bool HasPlanner()
{
    return !g_sDBPath.isEmpty();
}

void ResetPlannerStateForTests();
