#include "exchange/icalendarrepeats.h"

#include "platform/engine/longwork.h"

#include <QElapsedTimer>

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

template <typename Work>
auto Timed(RuleTime& time, Work work)
{
    QElapsedTimer watch;
    watch.start();
    auto result = work();
    time.Spend(watch.nsecsElapsed());
    return result;
}
} // namespace

RuleEnd ForEachDate(const QByteArray& rule, const QDateTime& start, RuleTime& time,
                    const std::function<bool(const QDateTime& date)>& take)
{
    if (time.IsOver()) return RuleEnd::OutOfTime;
    icalerror_set_errors_are_fatal(false);
    const icalrecurrencetype ical = icalrecurrencetype_from_string(rule.constData());
    if (ical.freq < ICAL_DAILY_RECURRENCE || ical.freq > ICAL_YEARLY_RECURRENCE) return RuleEnd::Unreadable;
    const RuleDates dates = Timed(time, [&] { return RuleDates(icalrecur_iterator_new(ical, OnTheWall(start))); });
    if (!dates) return RuleEnd::Unreadable;
    while (!time.IsOver()) {
        const icaltimetype next = Timed(time, [&] { return icalrecur_iterator_next(dates.get()); });
        const QDateTime date = OnTheWall(next);
        if (icaltime_is_null_time(next) || !date.isValid() || !take(date)) return RuleEnd::Reached;
        longwork::Goes();
    }
    return RuleEnd::OutOfTime;
}
