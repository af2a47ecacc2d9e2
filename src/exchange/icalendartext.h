// The entries of an iCalendar file as their lines. The library for iCalendar gives up a whole file for a missing END
// and counts no lines, so lines are taken apart here, each as its bytes stand in the file.
#pragma once

#include "exchange/icalendarlines.h"

#include <QString>
#include <QStringList>

#include <vector>

struct CalendarPart
{
    QByteArray kind; // VEVENT, VTODO, VJOURNAL, VTIMEZONE; within them VALARM, STANDARD, DAYLIGHT
    int line = 0;
    QByteArray zone; // of its calendar, if that names one
    std::vector<CalendarProperty> properties = {};
    std::vector<CalendarPart> parts = {};

    const CalendarProperty* Find(const char* name) const; // null if missing
    QByteArray Value(const char* name) const;             // empty if missing
};

struct CalendarParts
{
    std::vector<CalendarPart> entries, zones;
    QString refusal; // if this is no calendar
};

// What cannot be read. A broken file has many such lines, and nobody reads them all.
class CalendarFaults
{
public:
    void Add(int line, const QString& what);
    QStringList All() const; // in the order of the file

private:
    std::vector<std::pair<int, QString>> m_lines;
    int m_more = 0;
};

// Any bytes: missing ends are added, and lines around the calendars are skipped.
CalendarParts ReadCalendarParts(const QByteArray& file, CalendarFaults& faults);

QString CalendarText(const QByteArray& bytes); // UTF-8, else Windows-1252; line breaks and tabs, no other controls
QString Unescaped(const QString& text);
QString Quoted(const QByteArray& bytes); // the beginning, for a message
