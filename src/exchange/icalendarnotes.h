// The days and alarms of an entry of an iCalendar file.
#pragma once

#include "exchange/icalendarbody.h"
#include "exchange/icalendaroccurrences.h"
#include "exchange/importedfile.h"

// When an occurrence takes place on the person's clock, or its days.
struct LocalSpan
{
    QDateTime start, end; // wall times
    bool isDay = false;
};

LocalSpan OnPersonsClock(const CalendarSeries& series, const CalendarSpan& span, const CalendarZone& person);
QString HeadOf(const LocalSpan& span, const QString& title); // "10:30 Dentist"

// The body in each day of each span. Less if there is no room; this is then said in the remarks.
std::vector<ExtractedNote> NotesOf(const std::vector<LocalSpan>& spans, CalendarBody& body, CalendarRoom& room,
                                   QStringList& remarks);

// Those that are shown or played; each moment once.
std::vector<ExtractedAlarm> AlarmsOf(const CalendarPart& entry, const std::vector<LocalSpan>& spans, CalendarBody& body,
                                     CalendarRoom& room, CalendarReading& reading, QStringList& remarks);
