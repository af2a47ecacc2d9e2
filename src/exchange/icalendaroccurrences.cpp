#include "exchange/icalendaroccurrences.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace {
constexpr int SecondsOfDay = 24 * 3600;
constexpr qsizetype MostRules = 20;

// The steps of rules that are finer than a day.
constexpr std::pair<QByteArrayView, qint64> FineSteps[] = {{"HOURLY", 3600}, {"MINUTELY", 60}, {"SECONDLY", 1}};

using RuleFields = QMap<QByteArray, QByteArray>;

RuleFields FieldsOf(const QByteArray& rule)
{
    RuleFields fields;
    for (const QByteArray& field : rule.trimmed().toUpper().split(';'))
        fields[field.split('=').value(0)] = field.mid(field.indexOf('=') + 1);
    return fields;
}

// The library overlooks what it does not know.
bool IsWhole(const QByteArray& rule)
{
    static const QRegularExpression form(u"^[A-Z-]+=[^:;]+(;+[A-Z-]+=[^:;]+)*;*$"_s);
    return form.match(QString::fromLatin1(rule.trimmed().toUpper())).hasMatch();
}

// The end is left to us, since it may be of another kind than the start.
QByteArray WithoutEnd(const QByteArray& rule)
{
    QByteArrayList fields = rule.trimmed().toUpper().split(';');
    fields.removeIf([](const QByteArray& field) { return field.isEmpty() || field.startsWith("UNTIL="); });
    return fields.join(';');
}

qint64 FineStepOf(const RuleFields& fields)
{
    const auto unit =
        std::ranges::find(FineSteps, QByteArrayView(fields.value("FREQ")), [](const auto& s) { return s.first; });
    return unit == std::end(FineSteps) ? 0
                                       : unit->second * std::clamp(fields.value("INTERVAL", "1").toInt(), 0, 1'000'000);
}

bool HasLimits(const RuleFields& fields)
{
    return std::ranges::any_of(fields.keys(), [](const QByteArray& name) { return name.startsWith("BY"); });
}

class SeriesReader
{
public:
    SeriesReader(const CalendarPart& entry, CalendarReading& reading, CalendarSeries& series)
        : m_entry(entry), m_reading(reading), m_series(series), m_start(series.start), m_length(Length())
    {
    }

    void Read(const std::vector<const CalendarPart*>& changes)
    {
        for (const CalendarPart* const change : changes)
            Exclude(*change->Find("RECURRENCE-ID"));
        qsizetype rules = 0;
        for (const CalendarProperty& property : m_entry.properties) {
            if (property.name == "EXDATE") Exclude(property);
            if (property.name == "RDATE") Add(property);
            if (property.name.endsWith("RULE") && ++rules <= MostRules) Follow(property);
        }
        m_series.spans.push_back({m_start.wall, m_length});
        Tidy();
    }

private:
    // Both ends on the same clock, so that an event keeps its end when clocks are changed.
    qint64 Length() const
    {
        const bool isTask = m_entry.kind == "VTODO";
        const auto end = m_reading.zones.TimeOf(m_entry.Find(isTask ? "DUE" : "DTEND"));
        qint64 seconds = end ? m_start.wall.secsTo(end->isDay == m_start.isDay ? end->WallIn(*m_start.zone) : end->wall)
                             : SecondsOf(m_entry.Value("DURATION")).value_or(0);
        if (!m_start.isDay) return std::max(seconds, 0LL);
        const qint64 days = (seconds + SecondsOfDay - 1) / SecondsOfDay;
        return std::max(days, isTask ? 0LL : 1LL) * SecondsOfDay;
    }

    // A day has no zone, so only a time of UTC is looked up on the person's clock.
    QDateTime WallOf(const CalendarTime& time) const
    {
        if (!m_start.isDay)
            return time.isDay ? QDateTime(time.wall.date(), m_start.wall.time(), Qt::UTC) : time.WallIn(*m_start.zone);
        const CalendarZones& zones = m_reading.zones;
        const QDateTime wall = time.zone == &zones.Utc() ? time.WallIn(zones.Person()) : time.wall;
        return {wall.date(), QTime(0, 0), Qt::UTC};
    }

    void Exclude(const CalendarProperty& property)
    {
        ForEachTime(property, [&](const CalendarTime& time, const QByteArray&) { m_excluded += WallOf(time); });
    }

    void Add(const CalendarProperty& property)
    {
        m_series.repeats = true;
        ForEachTime(property, [&](const CalendarTime& time, const QByteArray& value) {
            if (m_series.spans.size() >= MostCalendarDays) return;
            CalendarProperty ending = property;
            ending.value = value.mid(value.indexOf('/') + 1);
            const auto end = value.contains('/') ? m_reading.zones.TimeOf(&ending) : std::nullopt;
            const auto seconds = end ? time.wall.secsTo(end->wall) : SecondsOf(ending.value).value_or(m_length);
            m_series.spans.push_back({WallOf(time), std::max(seconds, 0LL)});
        });
    }

    template <typename Use>
    void ForEachTime(const CalendarProperty& property, Use use)
    {
        if (property.value.count(',') > static_cast<qsizetype>(MostCalendarDays))
            return m_reading.faults.Add(property.line,
                                        u"%1 has too many dates."_s.arg(QString::fromLatin1(property.name)));
        for (const QByteArray& value : property.value.split(',')) {
            const auto time = m_reading.zones.TimeOf(property, value.split('/').first());
            if (time)
                use(*time, value);
            else
                m_reading.faults.Add(
                    property.line, u"%1 has no real date: %2"_s.arg(QString::fromLatin1(property.name), Quoted(value)));
        }
    }

    void Follow(const CalendarProperty& property)
    {
        const bool excludes = property.name == "EXRULE";
        const RuleFields fields = FieldsOf(property.value);
        const auto until = m_reading.zones.TimeOf(property, fields.value("UNTIL"));
        const bool isEndless = !fields.contains("UNTIL") && !fields.contains("COUNT");
        const auto take = [&, taken = size_t(0)](const QDateTime& date) mutable {
            if (until && IsPast(date, *until)) return false;
            if (isEndless && date.date() > m_reading.endlessUntil) return false;
            if (++taken > MostCalendarDays + 1) return false;
            if (excludes)
                m_excluded += date;
            else
                m_series.spans.push_back({date, m_length});
            return true;
        };
        const bool isWhole = IsWhole(property.value) && (until || !fields.contains("UNTIL"));
        const bool isRead = Report(property, isWhole ? Unroll(property, fields, take) : RuleEnd::Unreadable);
        if (excludes) return;
        m_series.repeats = m_series.repeats || isRead;
        m_series.isEndless = m_series.isEndless || (isRead && isEndless);
    }

    // The end is as exact as both are: a day, or a time on the clock of the series.
    bool IsPast(const QDateTime& date, const CalendarTime& until) const
    {
        if (until.isDay || m_start.isDay) return date.date() > until.wall.date();
        return date > (until.zone == &m_reading.zones.Utc() ? until.WallIn(*m_start.zone) : until.wall);
    }

    RuleEnd Unroll(const CalendarProperty& property, const RuleFields& fields, const TakeDate& take)
    {
        const qint64 step = FineStepOf(fields);
        if (step == 0) return ForEachDate(WithoutEnd(property.value), m_start.wall, m_reading.time, take);
        if (HasLimits(fields)) return RuleEnd::Unreadable;
        m_series.remarks += u"It repeats within a day: only the first time of each day is taken."_s;
        return ForEachDay(m_start.wall, step, fields.value("COUNT", "2000000000").toLongLong(), m_reading.time, take);
    }

    bool Report(const CalendarProperty& property, RuleEnd end)
    {
        if (end == RuleEnd::Unreadable)
            m_series.remarks += u"Line %1: the rule cannot be followed, so it stands once."_s.arg(property.line);
        if (end == RuleEnd::OutOfTime)
            m_series.remarks +=
                u"Line %1: the rules of the file take too long, so it stands less often."_s.arg(property.line);
        return end != RuleEnd::Unreadable;
    }

    void Tidy()
    {
        auto& spans = m_series.spans;
        std::erase_if(spans, [&](const CalendarSpan& span) { return m_excluded.contains(span.start); });
        std::ranges::stable_sort(spans, {}, &CalendarSpan::start);
        spans.erase(std::ranges::unique(spans, {}, &CalendarSpan::start).begin(), spans.end());
    }

    const CalendarPart& m_entry;
    CalendarReading& m_reading;
    CalendarSeries& m_series;
    const CalendarTime& m_start;
    const qint64 m_length;
    QSet<QDateTime> m_excluded;
};

// Calendars on the net write rules in UTC and mean the clock of their own zone.
CalendarTime OnOwnClock(const CalendarTime& start, const CalendarPart& entry, CalendarReading& reading)
{
    if (start.zone != &reading.zones.Utc() || entry.zone.isEmpty() || !entry.Find("RRULE")) return start;
    const CalendarZone& zone = reading.zones.Of(entry.zone);
    return zone.isKnown ? CalendarTime{start.WallIn(zone), false, &zone} : start;
}
} // namespace

std::optional<CalendarSeries> SeriesOf(const CalendarPart& entry, const std::vector<const CalendarPart*>& changes,
                                       CalendarReading& reading)
{
    const CalendarProperty* const dtstart = entry.Find("DTSTART");
    const CalendarProperty* const due = entry.kind == "VTODO" ? entry.Find("DUE") : nullptr;
    const auto begin = reading.zones.TimeOf(dtstart), end = reading.zones.TimeOf(due);
    const bool isSpan = begin && (!end || (begin->isDay == end->isDay && begin->wall <= end->WallIn(*begin->zone)));
    if (const auto start = isSpan ? begin : end) {
        CalendarSeries series{OnOwnClock(*start, entry, reading), {}, false, false, {}};
        SeriesReader(entry, reading, series).Read(changes);
        return series;
    }
    const QByteArray summary = entry.Value("SUMMARY");
    const QString title = summary.isEmpty() ? u"An entry"_s : Quoted(summary);
    if (const CalendarProperty* const dated = dtstart ? dtstart : due)
        reading.faults.Add(dated->line, u"%1 has no real date: %2"_s.arg(title, Quoted(dated->value)));
    else
        reading.faults.Add(entry.line, title + u" has no date."_s);
    return {};
}

void MoveFollowing(CalendarSeries& series, const CalendarTime& from, CalendarSeries& change)
{
    if (change.spans.empty()) return;
    const CalendarZone& zone = *series.start.zone;
    const QDateTime at =
        from.isDay ? QDateTime(from.wall.date(), series.start.wall.time(), Qt::UTC) : from.WallIn(zone);
    const qint64 later = at.secsTo(change.start.WallIn(zone)), seconds = change.spans.front().seconds;
    const auto first = std::ranges::lower_bound(series.spans, at, {}, &CalendarSpan::start);
    for (auto span = first; span != series.spans.end(); ++span) {
        const CalendarTime moved{span->start.addSecs(later), series.start.isDay, &zone};
        change.spans.push_back({moved.WallIn(*change.start.zone), seconds});
    }
    series.spans.erase(first, series.spans.end());
    change.repeats = series.repeats;
    change.isEndless = std::exchange(series.isEndless, false);
}
