// What an iCalendar file says of one note, alarm or event. Plain values.
#pragma once

#include "recurrence/recurdates.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

struct CalendarRule
{
    Frequency frequency = Frequency::Daily;
    int step = 1;
    QDate first, last;
    QList<QDate> missing; // between them
};

struct EntryText
{
    QString summary;     // the first line that is not blank
    QString description; // all of it
    QString html;        // its form; empty if everything is plain
    bool isBlank = true; // neither text nor pictures
};

struct CalendarEntry
{
    QString uid;
    QDate date;
    QTime time; // of an alarm; null: all day
    EntryText text;
    std::optional<CalendarRule> rule;
};

// Ends the line above the text of a day that other calendars do not have.
inline const QString OnlyHere = u", a day that only this planner has"_s;

// The texts of a note, without its pictures. The line above, if there is one, begins the description.
EntryText TextOfEntry(const QByteArray& rtf, const QString& above = {});
