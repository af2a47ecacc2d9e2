#include "exchange/icalendarzones.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
constexpr int Hour = 3600;

// "+0100", "-05:30"
std::optional<int> OffsetOf(const QByteArray& text)
{
    static const QRegularExpression form(u"([+-])(\\d\\d):?(\\d\\d)"_s);
    const auto match = form.match(QString::fromLatin1(text));
    if (!match.hasMatch() || match.captured(2).toInt() > 15) return {};
    const int seconds = match.captured(2).toInt() * Hour + match.captured(3).toInt() * 60;
    return match.captured(1) == u'-' ? -seconds : seconds;
}

// Older names such as US/Central are missing in the toolkit's list, but not among the system's files.
QTimeZone SystemZone(const QByteArray& id)
{
    static const QRegularExpression form(u"^[A-Za-z]+(/[A-Za-z0-9_+-]+)+$"_s);
    const bool isName = QTimeZone::isTimeZoneIdAvailable(id) || form.match(QString::fromLatin1(id)).hasMatch();
    return isName ? QTimeZone(id) : QTimeZone();
}

// Of a name of the tables. Some programs write a prefix: "/mozilla.org/20050126_1/Europe/Berlin".
QTimeZone TableZone(QByteArray id)
{
    const QByteArray known = QTimeZone::windowsIdToDefaultIanaId(id);
    if (!known.isEmpty()) return QTimeZone(known);
    for (;;) {
        if (const QTimeZone zone = SystemZone(id); zone.isValid()) return zone;
        const qsizetype slash = id.indexOf('/');
        if (slash < 0) return {};
        id.remove(0, slash + 1);
    }
}

QTimeZone ZoneOfTown(const QByteArray& town)
{
    static const QByteArrayList ids = QTimeZone::availableTimeZoneIds();
    const QByteArray end = '/' + QByteArray(town).replace(' ', '_');
    const auto id = std::ranges::find_if(ids, [&](const QByteArray& one) { return one.endsWith(end); });
    return id == ids.end() ? QTimeZone() : QTimeZone(*id);
}

// By the words that a person sees: "(UTC-05:00) Eastern Time (US & Canada)", "(UTC+01:00) Amsterdam, Berlin".
QTimeZone SeenZone(const QByteArray& id)
{
    const qsizetype at = std::max(id.indexOf("UTC"), id.indexOf("GMT"));
    const auto offset = at < 0 ? std::nullopt : OffsetOf(id.mid(at + 3, 6));
    if (!offset) return {};
    const QByteArray words = id.mid(id.indexOf(')') + 1).trimmed();
    const QByteArray american = words.first(std::max(words.indexOf(" Time"), qsizetype(0))) + " Standard Time";
    const QByteArray known = QTimeZone::windowsIdToDefaultIanaId(american);
    const QTimeZone zone = known.isEmpty() ? ZoneOfTown(words.split(',').first()) : QTimeZone(known);
    return zone.isValid() ? zone : QTimeZone(*offset);
}

// The number in so many digits, or -1.
int TakeNumber(QByteArrayView& text, qsizetype digits)
{
    if (text.size() < digits) return -1;
    int number = 0;
    for (const char digit : text.first(digits)) {
        if (digit < '0' || digit > '9') return -1;
        number = 10 * number + digit - '0';
    }
    text = text.sliced(digits);
    return number;
}

struct Written
{
    QDateTime wall;
    bool hasTime, isUtc;
};

// "20240105", "20240105T0900", "20240105T090000Z". Some programs write 2024-01-05T09:00:00Z.
std::optional<Written> WrittenTime(const QByteArray& value)
{
    constexpr qsizetype Longest = 32;
    const QByteArray all = value.trimmed().left(Longest).toUpper().replace('-', "").replace(':', "");
    QByteArrayView rest = all;
    const int year = TakeNumber(rest, 4), month = TakeNumber(rest, 2), day = TakeNumber(rest, 2);
    const bool hasTime = rest.startsWith('T');
    if (hasTime) rest = rest.sliced(1);
    const int hour = hasTime ? TakeNumber(rest, 2) : 0, minute = hasTime ? TakeNumber(rest, 2) : 0;
    const int second = hasTime && rest.size() >= 2 ? std::min(TakeNumber(rest, 2), 59) : 0; // 60 is a leap second
    const bool isUtc = hasTime && rest == "Z";
    const QDate date(year, month, day);
    const QTime time(hour, minute, second);
    if (!date.isValid() || !time.isValid() || !(isUtc || rest.isEmpty())) return {};
    return Written{{date, time, Qt::UTC}, hasTime, isUtc};
}
} // namespace

int CalendarZone::OffsetAt(const QDateTime& wall) const
{
    const auto after = std::ranges::upper_bound(changes, wall, {}, &std::pair<QDateTime, int>::first);
    return after == changes.begin() ? after->second : std::prev(after)->second;
}

QDateTime CalendarZone::UtcOf(const QDateTime& wall) const
{
    if (!changes.empty()) return wall.addSecs(-OffsetAt(wall));
    return QDateTime(wall.date(), wall.time(), zone).toUTC();
}

QDateTime CalendarZone::WallOf(const QDateTime& utc) const
{
    if (!changes.empty()) return utc.addSecs(OffsetAt(utc.addSecs(OffsetAt(utc))));
    const QDateTime local = utc.toTimeZone(zone);
    return {local.date(), local.time(), Qt::UTC};
}

QDateTime CalendarTime::WallIn(const CalendarZone& other) const
{
    // Not through UTC if the clock is the same, which skips some times.
    const bool isSame =
        isDay || zone == &other || (zone->changes.empty() && other.changes.empty() && zone->zone == other.zone);
    return isSame ? wall : other.WallOf(zone->UtcOf(wall));
}

CalendarZones::CalendarZones(const QTimeZone& person, const std::vector<CalendarPart>& zones, RuleTime& time)
    : m_person{person, true, {}}, m_utc{QTimeZone::utc(), true, {}}, m_time(time)
{
    for (const CalendarPart& zone : zones)
        m_parts.insert(zone.Value("TZID").replace('"', QByteArray()), &zone);
}

const CalendarZone& CalendarZones::Of(const QByteArray& id)
{
    // No program has so many or so long ones, and each is looked up piece by piece.
    constexpr qsizetype Longest = 255, Most = 1000;
    const bool isUsual = id.size() <= Longest && (m_known.size() < Most || m_known.contains(id));
    std::shared_ptr<const CalendarZone>& zone = m_known[isUsual ? id : QByteArray(1, '?')];
    if (!zone) zone = std::make_shared<CalendarZone>(Find(id));
    return *zone;
}

CalendarZone CalendarZones::Find(const QByteArray& id)
{
    if (const QTimeZone zone = TableZone(id); zone.isValid()) return {zone, true, {}};
    if (const CalendarPart* const part = m_parts.value(id)) {
        const QTimeZone zone = TableZone(part->Value("X-LIC-LOCATION").left(255));
        if (zone.isValid()) return {zone, true, {}};
        if (auto changes = ChangesOf(*part); !changes.empty()) return {{}, true, std::move(changes)};
    }
    const QTimeZone zone = SeenZone(id);
    return zone.isValid() ? CalendarZone{zone, true, {}} : CalendarZone{m_person.zone, false, {}};
}

std::vector<std::pair<QDateTime, int>> CalendarZones::ChangesOf(const CalendarPart& zone)
{
    constexpr size_t Most = 2000;
    std::vector<std::pair<QDateTime, int>> changes;
    for (const CalendarPart& part : zone.parts) {
        const auto offset = OffsetOf(part.Value("TZOFFSETTO"));
        const auto start = WrittenTime(part.Value("DTSTART")); // never by a zone, which may be this one
        if (!offset || !start) continue;
        const auto add = [&](const QDateTime& wall) {
            changes.emplace_back(wall, *offset);
            return wall.date().year() < 2100 && changes.size() < Most;
        };
        add(start->wall);
        ForEachDate(part.Value("RRULE"), start->wall, m_time, add);
        for (const CalendarProperty& property : part.properties) {
            if (property.name != "RDATE") continue;
            for (const QByteArray& value : property.value.split(','))
                if (const auto date = changes.size() < Most ? WrittenTime(value) : std::nullopt) add(date->wall);
        }
    }
    std::ranges::sort(changes);
    return changes;
}

std::optional<CalendarTime> CalendarZones::TimeOf(const CalendarProperty& property, const QByteArray& value)
{
    const auto written = WrittenTime(value);
    if (!written) return {};
    auto [wall, hasTime, isUtc] = *written;
    if (property.parameters.value("VALUE").toUpper() == "DATE") hasTime = false;
    if (!hasTime) return CalendarTime{{wall.date(), QTime(0, 0), Qt::UTC}, true, &m_person};
    const QByteArray id = property.parameters.value("TZID").trimmed();
    return CalendarTime{wall, false, isUtc ? &m_utc : id.isEmpty() ? &m_person : &Of(id)};
}

std::optional<CalendarTime> CalendarZones::TimeOf(const CalendarProperty* property)
{
    return property ? TimeOf(*property, property->value) : std::nullopt;
}

std::optional<qint64> SecondsOf(const QByteArray& duration)
{
    static const QRegularExpression form(
        u"^([+-]?)P(?:(\\d{1,6})W)?(?:(\\d{1,6})D)?(?:T(?:(\\d{1,7})H)?(?:(\\d{1,8})M)?(?:(\\d{1,9})S)?)?$"_s,
        QRegularExpression::CaseInsensitiveOption);
    constexpr qint64 Units[] = {7 * 24 * Hour, 24 * Hour, Hour, 60, 1};
    const auto match = form.match(QString::fromLatin1(duration.trimmed().left(64)));
    if (!match.hasMatch()) return {};
    qint64 seconds = 0;
    for (int i = 0; i < 5; ++i)
        seconds += match.captured(i + 2).toLongLong() * Units[i];
    return match.captured(1) == u'-' ? -seconds : seconds;
}
