// Moves through "Alarm Table". Knows no window. A failing step raises its error.
#pragma once

#include <QByteArray>
#include <QString>

class Recordset;

struct Alarm
{
    QString date; // the key, "1999/7/4"
    QString time; // "hh:mm", in older planners "h:mm"
    QByteArray note;
    QString tune; // a bare file name, though the field is called a path
    bool silence = false;
};

Alarm CurrentAlarm(const Recordset& alarms);
void subAddAlarmRecord(Recordset& alarms, const Alarm& alarm);

enum class Toward
{
    Next,
    Previous
};

// Goes to the next alarm of the date, or to the end of the table. From the far end it goes to the date's second alarm.
bool StepToAlarm(Recordset& alarms, const QString& date, Toward direction);

// Goes to the first alarm with the same date, time ("hh:mm"), tune and silence, or to the end of the table.
bool GoToAlarmLike(Recordset& alarms, const Alarm& alarm);

// Goes to the first alarm of this date and time, or to the end of the table. Reads only the alarms of the date.
bool GoToDueAlarm(Recordset& alarms, const QString& date, const QString& time);
