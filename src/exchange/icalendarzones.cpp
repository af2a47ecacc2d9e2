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
    std::shared_ptr<const CalendarZone>& zone = m_known[id];
    if (!zone) zone = std::make_shared<CalendarZone>(Find(id));
    return *zone;
}

CalendarZone CalendarZones::Find(const QByteArray& id)
{
    if (const QTimeZone zone = TableZone(id); zone.isValid()) return {zone, true, {}};
    if (const CalendarPart* const part = m_parts.value(id)) {
        const QTimeZone zone = TableZone(part->Value("X-LIC-LOCATION"));
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
        const auto start = TimeOf(part.Find("DTSTART"));
        if (!offset || !start) continue;
        const auto add = [&](const QDateTime& wall) {
            changes.emplace_back(wall, *offset);
            return wall.date().year() < 2100 && changes.size() < Most;
        };
        add(start->wall);
        const QByteArray rule = part.Value("RRULE").toUpper();
        if (rule.contains("YEARLY")) ForEachDate(rule, start->wall, m_time, add);
        for (const CalendarProperty& property : part.properties)
            if (const auto date = property.name == "RDATE" ? TimeOf(&property) : std::nullopt) add(date->wall);
    }
    std::ranges::sort(changes);
    return changes;
}

std::optional<CalendarTime> CalendarZones::TimeOf(const CalendarProperty& property, const QByteArray& value)
{
    static const QRegularExpression form(u"^(\\d{8})(?:T(\\d{4})(\\d\\d)?(Z?))?$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    // Some programs write 2024-01-05T09:00:00Z.
    const QString digits = QString::fromLatin1(value.trimmed().left(32)).remove(u'-').remove(u':');
    const auto match = form.match(digits);
    const QDate date = QDate::fromString(match.captured(1), u"yyyyMMdd"_s);
    const bool isDay = !match.hasCaptured(2) || property.parameters.value("VALUE").toUpper() == "DATE";
    if (!date.isValid()) return {};
    if (isDay) return CalendarTime{{date, QTime(0, 0), Qt::UTC}, true, &m_person};
    const int second = std::min(match.captured(3).toInt(), 59); // 60 is a leap second
    const QTime time(match.captured(2).left(2).toInt(), match.captured(2).mid(2).toInt(), second);
    if (!time.isValid()) return {};
    const QByteArray id = property.parameters.value("TZID").trimmed();
    const bool isUtc = !match.captured(4).isEmpty();
    return CalendarTime{{date, time, Qt::UTC}, false, isUtc ? &m_utc : id.isEmpty() ? &m_person : &Of(id)};
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
