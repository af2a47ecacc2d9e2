#include "alarms/alarmrules.h"

#include "calendar/dateorder.h"
#include "calendar/moddate.h"
#include "platform/runtime/language.h"

#include <QDateTime>

namespace {
constexpr int HoursOfHalf = 12, LastMinute = 59;

QString TwoDigits(int number)
{
    return QString::number(number).rightJustified(2, u'0');
}
} // namespace

QString fnAlarmDateKey(const DateOrder& order, const QString& sMaskText)
{
    return fnFnGetQMTDate(order.EntryDate(sMaskText));
}

QString AlarmTimeText(const QString& sHour, const QString& sMinute, HalfDay pm)
{
    int hour = IntegerOf(sHour);
    const int minute = IntegerOf(sMinute);
    if (hour < 1 || hour > HoursOfHalf || minute < 0 || minute > LastMinute) return {};
    if (pm == false && hour == HoursOfHalf) hour = 0;
    if (pm == true && hour != HoursOfHalf) hour += HoursOfHalf;
    return TwoDigits(hour) + u':' + TwoDigits(minute);
}

ShownTime ShownTimeOf(const QString& alarmTime)
{
    const bool isShort = alarmTime.indexOf(u':') == 1;
    const int hour = IntegerOf(alarmTime.left(isShort ? 1 : 2));
    const bool pm = hour >= HoursOfHalf;
    const int shown = pm ? hour - HoursOfHalf : hour;
    return {TwoDigits(shown == 0 ? HoursOfHalf : shown), alarmTime.right(2), pm};
}

QString ShownDayAndTime(const QString& alarmDate, const QString& alarmTime)
{
    const ShownTime time = ShownTimeOf(alarmTime);
    return u"%1, %2:%3 %4"_s.arg(fnFormatDateKey(alarmDate), QString::number(IntegerOf(time.hour)), time.minute,
                                 time.pm ? u"PM"_s : u"AM"_s);
}

QString HourUp(const QString& sHour)
{
    const int hour = IntegerOf(sHour);
    return TwoDigits(hour == HoursOfHalf ? 1 : hour + 1);
}

QString HourDown(const QString& sHour)
{
    const int hour = IntegerOf(sHour);
    return TwoDigits(hour <= 1 ? HoursOfHalf : hour - 1);
}

QString MinuteUp(const QString& sMinute)
{
    const int minute = IntegerOf(sMinute);
    return TwoDigits(minute == LastMinute ? 0 : minute + 1);
}

QString MinuteDown(const QString& sMinute)
{
    const int minute = IntegerOf(sMinute);
    return TwoDigits(minute == 0 ? LastMinute : minute - 1);
}

QString AlarmDateOf(const QDateTime& now)
{
    const QDate today = now.date();
    return KeyOf({today.year(), today.month(), today.day()});
}

QString AlarmTimeOf(const QDateTime& now)
{
    return now.toString(u"hh:mm"_s);
}
