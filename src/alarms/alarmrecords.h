// Moves through "Alarm Table". Knows no window. A failing step raises its error.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVariantList>

#include <vector>

class Recordset;

struct Alarm
{
    QString date; // the key, "1999/7/4"
    QString time; // "hh:mm", in older planners "h:mm"
    QByteArray note;
    QString tune; // a bare file name, though the field is called a path
    bool silence = false;
    bool operator==(const Alarm&) const = default;
};

QStringList AlarmFields();
Alarm AlarmOf(const QVariantList& values); // of these fields
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

// The alarms of this date and time. Goes to the first, or to the end of the table. Reads only the
// alarms of the date.
std::vector<Alarm> DueAlarms(Recordset& alarms, const QString& date, const QString& time);
