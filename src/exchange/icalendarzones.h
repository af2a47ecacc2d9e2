// The times of an iCalendar file and their zones.
#pragma once

#include "exchange/icalendarrepeats.h"
#include "exchange/icalendartext.h"

#include <QDateTime>
#include <QHash>
#include <QTimeZone>

#include <optional>

// A wall time is what the clock of a zone shows, as Qt::UTC.
struct CalendarZone
{
    QTimeZone zone;
    bool isKnown = true;                            // else the person's
    std::vector<std::pair<QDateTime, int>> changes; // of a zone that only the file knows: wall times, seconds from UTC

    QDateTime UtcOf(const QDateTime& wall) const;
    QDateTime WallOf(const QDateTime& utc) const;

private:
    int OffsetAt(const QDateTime& wall) const;
};

struct CalendarTime
{
    QDateTime wall;
    bool isDay = false; // it has no time and no zone
    const CalendarZone* zone = nullptr;

    QDateTime WallIn(const CalendarZone& other) const;
};

class CalendarZones
{
public:
    CalendarZones(const QTimeZone& person, const std::vector<CalendarPart>& zones, RuleTime& time);

    const CalendarZone& Person() const { return m_person; }
    const CalendarZone& Utc() const { return m_utc; }
    const CalendarZone& Of(const QByteArray& id); // the person's if it is unknown
    // One of the property's values. Nothing if it is no real date: it is not moved to a day that nobody wrote.
    std::optional<CalendarTime> TimeOf(const CalendarProperty& property, const QByteArray& value);
    std::optional<CalendarTime> TimeOf(const CalendarProperty* property);

private:
    CalendarZone Find(const QByteArray& id);
    std::vector<std::pair<QDateTime, int>> ChangesOf(const CalendarPart& zone);

    CalendarZone m_person, m_utc;
    QHash<QByteArray, const CalendarPart*> m_parts;
    QHash<QByteArray, std::shared_ptr<const CalendarZone>> m_known;
    RuleTime& m_time;
};

// "P1DT2H" in seconds. Nothing if it is no duration.
std::optional<qint64> SecondsOf(const QByteArray& duration);
