#include "alarms/openplanneralarms.h"

#include "alarms/alarmspan.h"
#include "platform/engine/database.h"
#include "state/moddate.h"
#include "state/plannerstate.h"

QString OpenPlannerAlarms::Planner() const
{
    return HasPlanner() ? g_sNotesFile : QString();
}

std::vector<Alarm> OpenPlannerAlarms::Due(const QDate& today, const QString& minute)
{
    if (g_rsAlarm.IsNothing()) return {}; // an older planner without the alarm table
    if (g_rsAlarm.EOF_() && g_rsAlarm.BOF()) return {};
    const ReadTransaction reading(g_dbPlanner);
    return DueAlarms(g_rsAlarm, KeyOf(GridDayOf(today)), minute);
}

std::vector<Alarm> OpenPlannerAlarms::Between(const QDateTime& after, const QDateTime& before)
{
    return AlarmsBetween(g_dbPlanner, after, before);
}
