// The walks through "Alarm Table". Nothing here knows a window; a step that fails raises its error.
#pragma once

#include <QByteArray>
#include <QString>

class Recordset;

struct Alarm
{
    QString date; // the key, "1999/7/4"
    QString time; // "hh:mm"; of older planners "h:mm"
    QByteArray note;
    QString tune; // a bare file name; the field that holds it is called a path
    bool silence = false;
};

Alarm CurrentAlarm(const Recordset& alarms);
void subAddAlarmRecord(Recordset& alarms, const Alarm& alarm);

enum class Toward
{
    Next,
    Previous
};

// Goes to the next alarm of the date, or stands at the end of the table. At the far end it first goes to the date's
// first alarm, and then to the one behind it.
bool StepToAlarm(Recordset& alarms, const QString& date, Toward direction);

// The first of all alarms that are alike but for their notes, or the end of the table. The time of the alarm is
// "hh:mm".
bool GoToAlarmLike(Recordset& alarms, const Alarm& alarm);

// The first alarm of this date and time, or the end of the table. Looks at the alarms of the date alone.
bool GoToDueAlarm(Recordset& alarms, const QString& date, const QString& time);
