#include "alarms/alarmrecords.h"

#include "platform/engine/recordset.h"

namespace {
const QString DateField = u"Alarm Date"_s;
const QString TimeField = u"Alarm Time"_s;
const QString NoteField = u"Alarm Note"_s;
const QString TuneField = u"Music Path"_s;
const QString SilenceField = u"Silence"_s;

QString DateOf(const Recordset& alarms)
{
    return alarms.Fields(DateField).toString();
}

// "hh:mm". Older planners store "h:mm".
QString LongTimeOf(const Recordset& alarms)
{
    return alarms.Fields(TimeField).toString().rightJustified(5, u'0');
}

bool IsPast(const Recordset& alarms, Toward direction)
{
    return direction == Toward::Next ? alarms.EOF_() : alarms.BOF();
}

bool StepOnce(Recordset& alarms, const QString& date, Toward direction)
{
    do {
        if (direction == Toward::Next)
            alarms.MoveNext();
        else
            alarms.MovePrevious();
    } while (!IsPast(alarms, direction) && DateOf(alarms) != date);
    return !IsPast(alarms, direction);
}
} // namespace

QStringList AlarmFields()
{
    return {DateField, TimeField, NoteField, TuneField, SilenceField};
}

Alarm AlarmOf(const QVariantList& values)
{
    return {values[0].toString(), values[1].toString(), values[2].toByteArray(), values[3].toString(),
            values[4].toBool()};
}

Alarm CurrentAlarm(const Recordset& alarms)
{
    QVariantList values;
    for (const QString& field : AlarmFields())
        values += alarms.Fields(field);
    return AlarmOf(values);
}

void subAddAlarmRecord(Recordset& alarms, const Alarm& alarm)
{
    alarms.AddNew();
    alarms.SetField(DateField, alarm.date);
    alarms.SetField(TimeField, alarm.time);
    alarms.SetField(NoteField, alarm.note);
    alarms.SetField(TuneField, alarm.tune);
    alarms.SetField(SilenceField, alarm.silence);
    alarms.Update();
}

bool StepToAlarm(Recordset& alarms, const QString& date, Toward direction)
{
    if (IsPast(alarms, direction)) return false;
    const bool isAtFarEnd = IsPast(alarms, direction == Toward::Next ? Toward::Previous : Toward::Next);
    if (isAtFarEnd && !StepOnce(alarms, date, direction)) return false;
    return StepOnce(alarms, date, direction);
}

bool GoToAlarmLike(Recordset& alarms, const Alarm& alarm)
{
    const auto isAlike = [&] {
        return DateOf(alarms) == alarm.date && LongTimeOf(alarms) == alarm.time &&
               alarms.Fields(TuneField).toString() == alarm.tune &&
               alarms.Fields(SilenceField).toBool() == alarm.silence;
    };
    for (alarms.MoveFirst(); !alarms.EOF_() && !isAlike();)
        alarms.MoveNext();
    return !alarms.EOF_();
}

std::vector<Alarm> DueAlarms(Recordset& alarms, const QString& date, const QString& time)
{
    std::vector<Alarm> due;
    const auto isOfDate = [&] { return !alarms.EOF_() && DateOf(alarms) == date; };
    const auto stepToDue = [&] {
        while (isOfDate() && alarms.Fields(TimeField).toString() != time)
            alarms.MoveNext();
        return isOfDate();
    };
    const auto goToFirst = [&] {
        alarms.Seek(u"="_s, date);
        return !alarms.NoMatch() && stepToDue();
    };
    if (!goToFirst()) {
        alarms.MoveLast();
        alarms.MoveNext();
        return due;
    }
    due.push_back(CurrentAlarm(alarms));
    for (alarms.MoveNext(); stepToDue(); alarms.MoveNext())
        due.push_back(CurrentAlarm(alarms));
    goToFirst();
    return due;
}
