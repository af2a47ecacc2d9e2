// What the calendar hands to the clock in the tray, and the clock to the calendar, when one replaces the other in the
// same process. It stands on the command line behind the word of the next one.
#pragma once

#include <QStringList>

#include <optional>

struct HandOver
{
    QString minute;  // the last that has rung ("hh:mm"), so that it does not ring twice
    QString planner; // its file; empty for none
    bool isShared = false;
    QStringList wanted; // of the calendar: the key of a day, or files of a call, or nothing

    static HandOver OfPlanner(const QString& minute); // the open one, or the last that was open

    QStringList ToClock() const; // the words
    QStringList ToCalendar() const;
};

// From the command line, or at the start of a session as TellClocks has kept it. None if the calendar is wanted.
std::optional<HandOver> HandedToClock();
std::optional<HandOver> HandedToCalendar(); // none if it does not come from the tray

// If the person wants the clock: the one that starts with the session will follow the open planner, and none that
// starts beside this window rings for it. To be called when another planner is open, or none, or when the wish has
// changed.
void TellClocks();

// Replaces this program by itself with these words; returns only if that fails.
void Replace(const QStringList& words);
