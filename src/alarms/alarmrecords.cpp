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

Alarm CurrentAlarm(const Recordset& alarms)
{
    return {DateOf(alarms), alarms.Fields(TimeField).toString(), alarms.Fields(NoteField).toByteArray(),
            alarms.Fields(TuneField).toString(), alarms.Fields(SilenceField).toBool()};
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

bool GoToDueAlarm(Recordset& alarms, const QString& date, const QString& time)
{
    alarms.Seek(u"="_s, date);
    bool isOfDate = !alarms.NoMatch();
    while (isOfDate && alarms.Fields(TimeField).toString() != time) {
        alarms.MoveNext();
        isOfDate = !alarms.EOF_() && DateOf(alarms) == date;
    }
    if (isOfDate) return true;
    alarms.MoveLast();
    alarms.MoveNext();
    return false;
}
