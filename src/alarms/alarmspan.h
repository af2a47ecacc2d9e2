// The alarms of a span of time, for the lists of missed and coming ones. Knows no window.
//
// A wall minute is what the clock on the wall shows, kept as if it were UTC: it exists in the hour that is left out in
// spring, and stays what it is when the computer comes into another time zone.
#pragma once

#include "alarms/alarmrecords.h"

#include <QDateTime>

class Database;

QDateTime WallMinute(const QDateTime& now);
QDateTime WallMinuteOf(const Alarm& alarm); // in which it rings; invalid if it never does

bool IsWithin(const Alarm& alarm, const QDateTime& after, const QDateTime& before); // neither of which is included

// All that ring after the one and before the other wall minute, in their order. Empty for an older planner without the
// table. The errors of Database::Walk.
std::vector<Alarm> AlarmsBetween(const Database& planner, const QDateTime& after, const QDateTime& before);
