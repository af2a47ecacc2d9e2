#include "exchange/icalendarfile.h"

#include "exchange/exportstamps.h"
#include "platform/engine/longwork.h"

#include <libical/ical.h>

#include <algorithm>
#include <memory>

namespace {
struct FreeIcal
{
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
    void operator()(char* text) const { icalmemory_free_buffer(text); }
};
using Component = std::unique_ptr<icalcomponent, FreeIcal>;

// Commas stay bare in these. Some readers take them as they are, backslashes included.
icalproperty* XText(const char* name, const QString& text)
{
    icalproperty* const property = icalproperty_new_x(text.toUtf8().constData());
    icalproperty_set_x_name(property, name);
    return property;
}

icalproperty* HtmlText(const QString& html)
{
    icalproperty* const property = XText("X-ALT-DESC", html);
    icalproperty_add_parameter(property, icalparameter_new_fmttype("text/html"));
    return property;
}

icaltimetype IcalTime(const QDate& date, const QTime& time = {})
{
    icaltimetype ical = icaltime_null_time();
    ical.year = date.year();
    ical.month = date.month();
    ical.day = date.day();
    ical.is_date = time.isNull();
    if (time.isNull()) return ical;
    ical.hour = time.hour();
    ical.minute = time.minute();
    ical.second = time.second();
    return ical;
}

icaltimetype IcalTime(const QDateTime& utc)
{
    return icaltime_from_timet_with_zone(utc.toSecsSinceEpoch(), false, icaltimezone_get_utc_timezone());
}

void AddRule(icalcomponent* event, const CalendarRule& rule)
{
    static constexpr icalrecurrencetype_frequency frequencies[] = {ICAL_DAILY_RECURRENCE, ICAL_WEEKLY_RECURRENCE,
                                                                   ICAL_MONTHLY_RECURRENCE, ICAL_YEARLY_RECURRENCE};
    icalrecurrencetype ical;
    icalrecurrencetype_clear(&ical);
    ical.freq = frequencies[static_cast<int>(rule.frequency)];
    ical.interval = rule.step;
    ical.until = IcalTime(rule.last);
    icalcomponent_add_property(event, icalproperty_new_rrule(ical));
    for (const QDate& date : rule.missing)
        icalcomponent_add_property(event, icalproperty_new_exdate(IcalTime(date)));
}

// In the planner's local time, whatever its zone: its alarms follow the clock on the wall.
void AddAlarm(icalcomponent* event, const QDateTime& start, const char* summary)
{
    constexpr int Length = 15 * 60; // some programs refuse an event without a length
    const QDateTime end = start.addSecs(Length);
    icalcomponent_add_property(event, icalproperty_new_dtstart(IcalTime(start.date(), start.time())));
    icalcomponent_add_property(event, icalproperty_new_dtend(IcalTime(end.date(), end.time())));
    icalcomponent* const alarm = icalcomponent_new_valarm();
    icalcomponent_add_component(event, alarm);
    icalcomponent_add_property(alarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
    icalcomponent_add_property(alarm, icalproperty_new_description(summary));
    icalcomponent_add_property(alarm, icalproperty_new_trigger(icaltriggertype_from_int(0)));
}

void AddDay(icalcomponent* event, const QDate& date)
{
    icalcomponent_add_property(event, icalproperty_new_dtstart(IcalTime(date)));
    icalcomponent_add_property(event, icalproperty_new_dtend(IcalTime(date.addDays(1)))); // not a part of it
    icalcomponent_add_property(event, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
}

Component EventOf(const CalendarEntry& entry)
{
    Component event(icalcomponent_new_vevent());
    const QByteArray summary = entry.text.summary.toUtf8(), description = entry.text.description.toUtf8();
    icalcomponent_add_property(event.get(), icalproperty_new_uid(entry.uid.toUtf8().constData()));
    if (entry.time.isNull())
        AddDay(event.get(), entry.date);
    else
        AddAlarm(event.get(), {entry.date, entry.time, Qt::UTC}, summary.constData());
    if (entry.rule) AddRule(event.get(), *entry.rule);
    icalcomponent_add_property(event.get(), icalproperty_new_summary(summary.constData()));
    if (!description.isEmpty())
        icalcomponent_add_property(event.get(), icalproperty_new_description(description.constData()));
    if (!entry.text.html.isEmpty()) icalcomponent_add_property(event.get(), HtmlText(entry.text.html));
    return event;
}

QByteArray Written(const Component& component)
{
    return std::unique_ptr<char, FreeIcal>(icalcomponent_as_ical_string_r(component.get())).get();
}

// The number rises from machine to machine too, so it counts the minutes of a calendar that all of them share.
void AddStamp(icalcomponent* event, const QDateTime& moment)
{
    const qint64 seconds = QDateTime({2026, 1, 1}, {}, Qt::UTC).secsTo(moment);
    icalcomponent_add_property(event, icalproperty_new_dtstamp(IcalTime(moment)));
    icalcomponent_add_property(event, icalproperty_new_lastmodified(IcalTime(moment)));
    icalcomponent_add_property(event, icalproperty_new_sequence(static_cast<int>(std::max(seconds / 60, 0LL))));
}
} // namespace

QByteArray ICalendarFile(const QString& title, const std::vector<CalendarEntry>& entries, ExportStamps& stamps)
{
    icalerror_set_errors_are_fatal(false);
    const Component calendar(icalcomponent_new_vcalendar());
    for (icalproperty* property :
         {icalproperty_new_version("2.0"), icalproperty_new_prodid("-//Orrelin//Orrelin " ORRELIN_VERSION "//EN"),
          icalproperty_new_calscale("GREGORIAN"), XText("X-WR-CALNAME", title)})
        icalcomponent_add_property(calendar.get(), property);
    for (const CalendarEntry& entry : entries) {
        longwork::Goes();
        Component event = EventOf(entry);
        AddStamp(event.get(), stamps.MomentOf(entry.uid, Written(event)));
        icalcomponent_add_component(calendar.get(), event.release());
    }
    return Written(calendar);
}
