// When an entry of an iCalendar file takes place.
#pragma once

#include "exchange/icalendarzones.h"

#include <QDate>
#include <QStringList>

#include <vector>

inline constexpr size_t MostCalendarDays = 10'000; // of an entry

struct CalendarSpan
{
    QDateTime start; // wall time in the zone of its series
    qint64 seconds = 0;

    auto operator<=>(const CalendarSpan&) const = default;
};

struct CalendarSeries
{
    CalendarTime start;              // the first one of the file, with the zone of all
    std::vector<CalendarSpan> spans; // in order
    bool repeats = false, isEndless = false;
    QStringList remarks; // how it differs from the file
};

struct CalendarReading // what the reading of a file shares
{
    CalendarZones zones;
    RuleTime& time;
    QDate endlessUntil;
    CalendarFaults& faults;
};

// Without the occurrences that the changes replace. Nothing if the entry has no date; the faults then say so.
std::optional<CalendarSeries> SeriesOf(const CalendarPart& entry, const std::vector<const CalendarPart*>& changes,
                                       CalendarReading& reading);

// A change of this occurrence and all after it: takes these out of the series, moved as the change moves the first.
void MoveFollowing(CalendarSeries& series, const CalendarTime& from, CalendarSeries& change);
