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

// Most alarms of a planner are of other days, so the day decides before the time is read.
bool IsWithin(const Alarm& alarm, const QDateTime& after, const QDateTime& before)
{
    const auto of = DayOfKey(alarm.date);
    const QDate day = of ? QDate(of->year, of->month, of->day) : QDate();
    if (!day.isValid() || day < after.date() || day > before.date()) return false;
    const QDateTime minute = WallMinuteOf(alarm);
    return minute.isValid() && minute > after && minute < before;
}

std::vector<Alarm> AlarmsBetween(const Database& planner, const QDateTime& after, const QDateTime& before)
{
    std::vector<Alarm> found;
    if (!planner.TableNames().contains(schema::Alarms, Qt::CaseInsensitive)) return found;
    planner.Walk(schema::Alarms, AlarmFields(), [&](const QVariantList& values) {
        if (Alarm alarm = AlarmOf(values); IsWithin(alarm, after, before)) found.push_back(std::move(alarm));
    });
    std::ranges::stable_sort(found, {}, WallMinuteOf);
    return found;
}
