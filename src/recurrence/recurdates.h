// The dates of a recurring event, as date keys (state/moddate.h). Every fourth year is a leap year. Plain computation.
// The arguments must be real dates or results of these routines.
#pragma once

#include "state/moddate.h"

#include <QStringList>

enum class Frequency
{
    Daily,
    Weekly,
    Monthly,
    Yearly
};

QString WordOf(Frequency frequency);
std::optional<Frequency> FrequencyOf(const QString& word);

// The date step days, weeks, months or years after current. Days and weeks that cross a month's end use the
// length of the month where the call began, so they can name a day that does not exist. Months and years take the
// start's day, cut to the month's length; a cut day stays until a month is no longer than the start's day.
GridDay NextDate(Frequency frequency, const GridDay& start, GridDay current, int step);

// Both are entry dates (month/day/year). True if the start is not after the end.
bool fnCheckBackwardDate(const QString& sStart, const QString& sEnd);
bool IsDayOfItsMonth(const QString& dateKey); // the day exists in its month

// The dates to write, the start always first. step is at least 1.
QStringList EventDates(Frequency frequency, const QString& start, const QString& end, int step);
// Counts the same dates: "Every 2 weeks: 3 days, from Mar 1, 1999 to Mar 29, 1999."
QString EventInWords(Frequency frequency, const QString& start, const QString& end, int step);
// True if these dates stop before the end, at a day that does not exist, from which no later date can be reached. Only
// a step longer than the shortest month leads there.
bool BreaksOff(Frequency frequency, const QStringList& eventDates, const QString& end, int step);
// The dates to search when the event is removed: every day, week, month or year, since the step is not stored. All but
// the daily walk include one date past the end.
QStringList RemovalDates(Frequency frequency, const QString& start, const QString& end);
