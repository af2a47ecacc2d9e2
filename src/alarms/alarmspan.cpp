#include "alarms/alarmspan.h"

#include "plannerfile/schema.h"
#include "platform/engine/database.h"
#include "state/moddate.h"

#include <algorithm>

namespace {
const QString TimeForm = u"hh:mm"_s;
}

QDateTime WallMinute(const QDateTime& now)
{
    return {now.date(), QTime(now.time().hour(), now.time().minute()), Qt::UTC};
}

// The clock compares texts, so "7:05" of an older planner and a padded date never ring.
QDateTime WallMinuteOf(const Alarm& alarm)
{
    const auto day = DayOfKey(alarm.date);
    const QTime time = QTime::fromString(alarm.time, TimeForm);
    if (!day || KeyOf(*day) != alarm.date || time.toString(TimeForm) != alarm.time) return {};
    return {QDate(day->year, day->month, day->day), time, Qt::UTC};
}

std::vector<Alarm> AllAlarms(const Database& planner)
{
    std::vector<Alarm> all;
    if (!planner.TableNames().contains(schema::Alarms, Qt::CaseInsensitive)) return all;
    planner.Walk(schema::Alarms, AlarmFields(), [&](const QVariantList& values) { all.push_back(AlarmOf(values)); });
    return all;
}

std::vector<Alarm> AlarmsWithin(const std::vector<Alarm>& alarms, const QDateTime& after, const QDateTime& before)
{
    std::vector<Alarm> within;
    for (const Alarm& alarm : alarms) {
        const QDateTime minute = WallMinuteOf(alarm);
        if (minute.isValid() && minute > after && minute < before) within.push_back(alarm);
    }
    std::ranges::stable_sort(within, {}, WallMinuteOf);
    return within;
}
