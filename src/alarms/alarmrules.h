// Alarm times as text, in the boxes and in the table. Plain computation.
#pragma once

#include <QString>

#include <optional>

class QDateTime;

// Half of the day; empty if none is chosen.
using HalfDay = std::optional<bool>; // true: PM

// The stored time, "hh:mm" of 24 hours. Empty if the hour is not 1 to 12 or the minute not 0 to 59.
QString AlarmTimeText(const QString& sHour, const QString& sMinute, HalfDay pm);

// A stored time as the boxes show it. In older planners the hour may have one digit.
struct ShownTime
{
    QString hour; // two digits, 01 to 12
    QString minute;
    bool pm;
};
ShownTime ShownTimeOf(const QString& alarmTime);

QString ShownTimeText(const QString& alarmTime);                             // "9:05 AM"
QString ShownDayAndTime(const QString& alarmDate, const QString& alarmTime); // "Jul 4, 1999, 9:05 AM"

// The box's number plus or minus one, wrapping from the last to the first. Other text counts as 0.
QString OneUp(const QString& sNumber, int first, int last);
QString OneDown(const QString& sNumber, int first, int last);

// True if this minute is past: such an alarm never rings.
bool IsOver(const QString& alarmDate, const QString& alarmTime, const QDateTime& now);
