#include "state/plannerstate.h"

QString g_sDBPath;
QString g_sDBTitle;
QString g_sNotesFile;
bool g_bDBShared = false;
Database g_dbPlanner;
Recordset g_rsQMT;
Recordset g_rsAlarm;
Recordset g_rsRecurse;
Recordset g_rsFind;
bool g_bExitSaved = false;
QString g_sDamageTold;
BackupLook g_lastLook;

void AdoptPlanner(const Database& database, const Recordset& notes, const QString& file)
{
    g_dbPlanner = database;
    g_rsQMT = notes;
    g_sNotesFile = file;
    g_rsAlarm = g_rsRecurse = g_rsFind = {};
}

void ResetPlannerStateForTests()
{
    g_sDBPath.clear();
    g_sDBTitle.clear();
    g_sNotesFile.clear();
    g_sDamageTold.clear();
    g_lastLook = {};
    g_bDBShared = g_bExitSaved = false;
    g_rsQMT = g_rsAlarm = g_rsRecurse = g_rsFind = {};
    g_dbPlanner = {};
}
