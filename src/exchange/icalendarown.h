// Orrelin's own entries in an iCalendar file, known by the uids that its export writes.
#pragma once

#include "exchange/icalendaroccurrences.h"
#include "state/moddate.h"

#include <optional>

enum class OwnKind
{
    Note,
    Memo,
    Alarm,
    Event
};

struct OwnCalendarEntry
{
    OwnKind kind = OwnKind::Note;
    int memo = 0;
    GridDay day; // a day that only this planner has, shown elsewhere as the next one; else year 0
};

// Nothing if it is another program's, or became something else there.
std::optional<OwnCalendarEntry> OwnEntryOf(const CalendarPart& entry, const CalendarSeries& series);
