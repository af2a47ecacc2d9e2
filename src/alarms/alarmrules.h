// Times of alarms as texts: what the boxes show, and what the table holds. Plain computation.
#pragma once

#include <QString>

#include <optional>

// The half of the day that the hour is in; empty where none is chosen.
using HalfDay = std::optional<bool>; // true: PM

// The stored time, "hh:mm" of 24 hours; empty if the hour is not 1 to 12 or the minute not 0 to 59.
QString AlarmTimeText(const QString& sHour, const QString& sMinute, HalfDay pm);

// A stored time as the boxes show it. The hour of an older planner may have one digit.
struct ShownTime
{
    QString hour; // two digits, 01 to 12
    QString minute;
    bool pm;
};
ShownTime ShownTimeOf(const QString& alarmTime);

QString ShownDayAndTime(const QString& alarmDate, const QString& alarmTime); // "Jul 4, 1999, 9:05 AM"

// One up or down from the number of a box, round from the last to the first; what is no number counts as 0.
QString OneUp(const QString& sNumber, int first, int last);
QString OneDown(const QString& sNumber, int first, int last);
