// The dates of a recurring event: date keys in, date keys out (calendar/moddate.h). Every year that can be divided by
// four is a leap year. Plain computation. What comes in are real dates, or such as these routines have made.
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

// As records tell it: "DAILY", "WEEKLY", "MONTHLY", "YEARLY".
QString WordOf(Frequency frequency);
std::optional<Frequency> FrequencyOf(const QString& word);

// The next date of an event that began at the start, so many days, weeks, months or years on. Days and weeks that cross
// the end of a month count the next one by the length of the month they began in, and can name a day that it does not
// have. Months and years take the day of the start, cut to the month's length. Once cut it stays: only a month that is
// no longer than the start's day sets it again.
GridDay NextDate(Frequency frequency, const GridDay& start, GridDay current, int step);

// Of two entry dates (month/day/year): whether the start is on or before the end.
bool fnCheckBackwardDate(const QString& sStart, const QString& sEnd);
bool IsDayOfItsMonth(const QString& dateKey); // the day is not past the end of its month

// The dates that an event is written into. The start is always one of them. The step is 1 or more.
QStringList EventDates(Frequency frequency, const QString& start, const QString& end, int step);
// Whether the walk of these event dates ended before its end, at a day that its month does not have: no later date can
// be reached from there. Only steps longer than the shortest month come to one.
bool BreaksOff(Frequency frequency, const QStringList& eventDates, const QString& end, int step);
// The dates that it is taken out of, one by one, since nobody has kept its step. All but the daily walk go one date
// past the end.
QStringList RemovalDates(Frequency frequency, const QString& start, const QString& end);
