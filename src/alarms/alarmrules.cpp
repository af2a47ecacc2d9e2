#include "alarms/alarmrules.h"

#include "platform/runtime/language.h"
#include "state/moddate.h"

#include <QDateTime>

namespace {
constexpr int HoursOfHalf = 12, LastMinute = 59;

QString TwoDigits(int number)
{
    return QString::number(number).rightJustified(2, u'0');
}
} // namespace

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
    const int hour = IntegerOf(alarmTime.left(2));
    const bool pm = hour >= HoursOfHalf;
    const int shown = pm ? hour - HoursOfHalf : hour;
    return {TwoDigits(shown == 0 ? HoursOfHalf : shown), alarmTime.right(2), pm};
}

QString ShownTimeText(const QString& alarmTime)
{
    const ShownTime time = ShownTimeOf(alarmTime);
    return u"%1:%2 %3"_s.arg(QString::number(IntegerOf(time.hour)), time.minute, time.pm ? u"PM"_s : u"AM"_s);
}

QString ShownDayAndTime(const QString& alarmDate, const QString& alarmTime)
{
    return u"%1, %2"_s.arg(fnFormatDateKey(alarmDate), ShownTimeText(alarmTime));
}

QString OneUp(const QString& sNumber, int first, int last)
{
    const int number = IntegerOf(sNumber);
    return TwoDigits(number == last ? first : number + 1);
}

QString OneDown(const QString& sNumber, int first, int last)
{
    const int number = IntegerOf(sNumber);
    return TwoDigits(number <= first ? last : number - 1);
}

bool IsOver(const QString& alarmDate, const QString& alarmTime, const QDateTime& now)
{
    const GridDay day = {fnGetQMTYear(alarmDate), fnGetQMTMonth(alarmDate), fnGetQMTDay(alarmDate)};
    const GridDay today = GridDayOf(now.date());
    return day == today ? alarmTime < now.toString(u"hh:mm"_s) : day < today;
}
