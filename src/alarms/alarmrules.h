// Dates and times of alarms as texts: what the boxes show, and what the table holds. Plain computation.
#pragma once

#include <QString>

#include <optional>

class QDateTime;
struct DateOrder;

QString fnAlarmDateKey(const DateOrder& order, const QString& sMaskText); // "1999/7/4", of whatever the digits are

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

// A step of the boxes' arrows; what is no number counts as 0. The hour goes round without changing its half of the day.
QString HourUp(const QString& sHour);
QString HourDown(const QString& sHour);
QString MinuteUp(const QString& sMinute);
QString MinuteDown(const QString& sMinute);

// What the alarm clock looks for.
QString AlarmDateOf(const QDateTime& now);
QString AlarmTimeOf(const QDateTime& now);
