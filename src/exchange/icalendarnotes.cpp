#include "exchange/icalendarnotes.h"

#include "platform/engine/longwork.h"

#include <algorithm>
#include <map>
#include <set>

namespace {
constexpr int MostDaysOfSpan = 366;

QString TimeOf(const QDateTime& wall)
{
    return wall.time().toString(u"hh:mm"_s);
}

// The last day that it reaches into. One that ends at midnight does not reach into the next day.
QDate LastDayOf(const LocalSpan& span)
{
    const QDateTime last = span.end > span.start ? span.end.addSecs(-1) : span.start;
    return last.date();
}

QString HeadOf(const LocalSpan& span, const QDate& day, const QString& title)
{
    if (span.isDay || day == span.start.date()) return HeadOf(span, title);
    return day == span.end.date() ? u"until %1 "_s.arg(TimeOf(span.end)) + title : title;
}

struct AlarmTime
{
    std::optional<QDateTime> wall; // on the person's clock; else relative
    qint64 seconds = 0;
    bool isOfEnd = false;
};

std::optional<AlarmTime> AlarmTimeOf(const CalendarProperty& trigger, CalendarReading& reading)
{
    constexpr int NoAlarm = 1976; // some programs mean none by a time in this year
    if (const auto seconds = SecondsOf(trigger.value))
        return AlarmTime{{}, *seconds, trigger.parameters.value("RELATED").toUpper() == "END"};
    const auto time = reading.zones.TimeOf(&trigger);
    if (time && time->wall.date().year() != NoAlarm) return AlarmTime{time->WallIn(reading.zones.Person()), 0, false};
    if (!time && !trigger.value.trimmed().isEmpty())
        reading.faults.Add(trigger.line, u"The time of an alarm is not understood: "_s + Quoted(trigger.value));
    return {};
}

// The planner's keys have years of four digits.
bool IsDayOfPlanner(const GridDay& day)
{
    return IsDayOfGrid(day) && day.year < 10'000;
}

std::vector<AlarmTime> AlarmTimesOf(const CalendarPart& entry, CalendarReading& reading, QStringList& remarks)
{
    constexpr size_t Most = 10;
    std::vector<AlarmTime> times;
    bool hasOther = false;
    for (const CalendarPart& part : entry.parts) {
        const QByteArray action = part.Value("ACTION").toUpper();
        const CalendarProperty* const trigger = part.Find("TRIGGER");
        hasOther = hasOther || action == "EMAIL" || action == "PROCEDURE";
        if (!trigger || times.size() == Most || (!action.isEmpty() && action != "DISPLAY" && action != "AUDIO"))
            continue;
        if (const auto time = AlarmTimeOf(*trigger, reading)) times.push_back(*time);
    }
    if (hasOther && times.empty()) remarks += u"Its alarm sends mail or starts a program, so it is left out."_s;
    return times;
}
} // namespace

LocalSpan OnPersonsClock(const CalendarSeries& series, const CalendarSpan& span, const CalendarZone& person)
{
    const auto local = [&](const QDateTime& wall) {
        return CalendarTime{wall, series.start.isDay, series.start.zone}.WallIn(person);
    };
    return {local(span.start), local(span.start.addSecs(span.seconds)), series.start.isDay};
}

QString HeadOf(const LocalSpan& span, const QString& title)
{
    return span.isDay ? title : TimeOf(span.start) + u' ' + title;
}

std::vector<ExtractedNote> NotesOf(const std::vector<LocalSpan>& spans, CalendarBody& body, CalendarRoom& room,
                                   QStringList& remarks)
{
    std::map<std::pair<GridDay, QString>, QByteArray> texts; // where spans overlap, one is enough
    bool isCut = false, isFull = false;
    for (const LocalSpan& span : spans) {
        longwork::Goes();
        const QDate first = span.start.date(), last = LastDayOf(span);
        isCut = isCut || first.daysTo(last) >= MostDaysOfSpan;
        for (QDate day = first; day <= last && first.daysTo(day) < MostDaysOfSpan && !isFull; day = day.addDays(1)) {
            isFull = texts.size() == MostCalendarDays || room.IsFull();
            if (isFull || !IsDayOfPlanner(GridDayOf(day))) continue;
            const QString head = HeadOf(span, day, body.Title());
            const auto [text, isNew] = texts.try_emplace({GridDayOf(day), head});
            if (isNew) text->second = body.Below(head);
            --room.days; // also if the day has this text already
        }
    }
    if (isFull || isCut)
        remarks += u"Only its first %L1 days are taken."_s.arg(isFull ? std::ssize(texts) : MostDaysOfSpan);
    std::vector<ExtractedNote> notes;
    for (const auto& [place, rtf] : texts)
        notes.push_back({place.first, 0, rtf});
    return notes;
}

std::vector<ExtractedAlarm> AlarmsOf(const CalendarPart& entry, const std::vector<LocalSpan>& spans, CalendarBody& body,
                                     CalendarRoom& room, CalendarReading& reading, QStringList& remarks)
{
    std::vector<ExtractedAlarm> alarms;
    std::set<QDateTime> moments;
    for (const AlarmTime& time : AlarmTimesOf(entry, reading, remarks)) {
        for (const LocalSpan& span : spans) {
            if (alarms.size() == MostCalendarDays || room.IsFull()) break;
            QDateTime wall = time.wall ? *time.wall : (time.isOfEnd ? span.end : span.start).addSecs(time.seconds);
            wall.setTime({wall.time().hour(), wall.time().minute()});
            const GridDay day = GridDayOf(wall.date());
            if (!wall.isValid() || !IsDayOfPlanner(day) || !moments.insert(wall).second) continue;
            alarms.push_back(
                {day, wall.time().msecsSinceStartOfDay() / 60'000, body.Below(HeadOf(span, body.Title()))});
            --room.days;
        }
    }
    std::ranges::stable_sort(alarms, {}, [](const ExtractedAlarm& a) { return std::pair(a.day, a.minute); });
    return alarms;
}
