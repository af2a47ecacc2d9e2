#include "exchange/icalendarrepeats.h"

#include "platform/engine/longwork.h"

#include <libical/ical.h>

#include <memory>

namespace {
struct FreeDates
{
    void operator()(icalrecur_iterator* dates) const { icalrecur_iterator_free(dates); }
};
using RuleDates = std::unique_ptr<icalrecur_iterator, FreeDates>;

// Without a zone: in one, the library moves the days around a change of clocks.
icaltimetype OnTheWall(const QDateTime& wall)
{
    icaltimetype ical = icaltime_null_time();
    ical.year = wall.date().year();
    ical.month = wall.date().month();
    ical.day = wall.date().day();
    ical.hour = wall.time().hour();
    ical.minute = wall.time().minute();
    ical.second = wall.time().second();
    return ical;
}

QDateTime OnTheWall(const icaltimetype& ical)
{
    return {{ical.year, ical.month, ical.day}, {ical.hour, ical.minute, ical.second}, Qt::UTC};
}
} // namespace

RuleEnd ForEachDate(const QByteArray& rule, const QDateTime& start, RuleTime& time, const TakeDate& take)
{
    const RuleTime::Watch watch(time);
    if (watch.IsOver()) return RuleEnd::OutOfTime;
    icalerror_set_errors_are_fatal(false);
    const icalrecurrencetype ical = icalrecurrencetype_from_string(rule.constData());
    if (ical.freq < ICAL_DAILY_RECURRENCE || ical.freq > ICAL_YEARLY_RECURRENCE) return RuleEnd::Unreadable;
    const RuleDates dates(icalrecur_iterator_new(ical, OnTheWall(start)));
    if (!dates) return RuleEnd::Unreadable;
    for (RuleEnd end = RuleEnd::Unreadable; !watch.IsOver(); end = RuleEnd::Reached) {
        longwork::Goes();
        const icaltimetype next = icalrecur_iterator_next(dates.get());
        const QDateTime date = OnTheWall(next);
        if (icaltime_is_null_time(next) || !date.isValid()) return end;
        if (!take(date)) return RuleEnd::Reached;
    }
    return RuleEnd::OutOfTime;
}

RuleEnd ForEachDay(const QDateTime& start, qint64 step, qint64 count, RuleTime& time, const TakeDate& take)
{
    const RuleTime::Watch watch(time);
    QDateTime date = start;
    for (qint64 done = 0; done < count && date.isValid() && take(date);) {
        if (watch.IsOver()) return RuleEnd::OutOfTime;
        longwork::Goes();
        const qint64 toMidnight = date.secsTo(QDateTime(date.date().addDays(1), QTime(0, 0), Qt::UTC));
        const qint64 steps = (toMidnight + step - 1) / step;
        date = date.addSecs(steps * step);
        done += steps;
    }
    return RuleEnd::Reached;
}
