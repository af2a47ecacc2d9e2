#include "recurrence/recurdates.h"

#include "state/modshow.h"

namespace {
int LengthOfMonth(const GridDay& day)
{
    return MonthLength(day.year, day.month);
}

void NextMonth(GridDay& day)
{
    day.month = day.month == 12 ? 1 : day.month + 1;
    if (day.month == 1) ++day.year;
}

GridDay OfKey(const QString& key)
{
    return {fnGetQMTYear(key), fnGetQMTMonth(key), fnGetQMTDay(key)};
}

GridDay OfEntry(const QString& entryDate)
{
    return {fnGetYear(entryDate), fnGetMonth(entryDate), fnGetDay(entryDate)};
}

void CutToMonth(GridDay& date, int wantedDay)
{
    const int length = LengthOfMonth(date);
    if (wantedDay >= length) date.day = length;
}

// The month's length is looked up once per call, not per step.
void fnGetNextDayDate(GridDay& date, int, int step)
{
    const int length = LengthOfMonth(date);
    for (int i = 0; i < step; ++i) {
        if (date.day == length) {
            date.day = 1;
            NextMonth(date);
        } else {
            ++date.day;
        }
    }
}

void fnGetNextWeekDate(GridDay& date, int, int step)
{
    constexpr int Week = 7;
    const int length = LengthOfMonth(date);
    for (int i = 0; i < step; ++i) {
        date.day += Week;
        if (date.day <= length) continue;
        date.day -= length;
        NextMonth(date);
    }
}

void fnGetNextMonthDate(GridDay& date, int startDay, int step)
{
    for (int i = 0; i < step; ++i)
        NextMonth(date);
    CutToMonth(date, startDay);
}

void fnGetNextYearDate(GridDay& date, int startDay, int step)
{
    date.year += step;
    CutToMonth(date, startDay);
}

struct FrequencyRow
{
    QLatin1StringView word;
    void (*advance)(GridDay& date, int startDay, int step);
};

constexpr FrequencyRow Rows[] = {{"DAILY"_L1, fnGetNextDayDate},
                                 {"WEEKLY"_L1, fnGetNextWeekDate},
                                 {"MONTHLY"_L1, fnGetNextMonthDate},
                                 {"YEARLY"_L1, fnGetNextYearDate}};
} // namespace

QString WordOf(Frequency frequency)
{
    return Rows[static_cast<int>(frequency)].word;
}

std::optional<Frequency> FrequencyOf(const QString& word)
{
    for (std::size_t i = 0; i < std::size(Rows); ++i) {
        if (Rows[i].word == word) return static_cast<Frequency>(i);
    }
    return {};
}

GridDay NextDate(Frequency frequency, const GridDay& start, GridDay current, int step)
{
    Rows[static_cast<int>(frequency)].advance(current, start.day, step);
    return current;
}

bool fnCheckBackwardDate(const QString& sStart, const QString& sEnd)
{
    return OfEntry(sStart) <= OfEntry(sEnd);
}

bool IsDayOfItsMonth(const QString& dateKey)
{
    const GridDay date = OfKey(dateKey);
    return date.day <= LengthOfMonth(date);
}

QStringList EventDates(Frequency frequency, const QString& start, const QString& end, int step)
{
    constexpr int LongestMonth = 31;
    const GridDay first = OfKey(start), last = OfKey(end);
    QStringList dates{start};
    // A long step can lead to a day beyond 31, from which no later month can be reached.
    for (GridDay day = NextDate(frequency, first, first, step); day <= last && day.day <= LongestMonth;
         day = NextDate(frequency, first, day, step))
        dates += KeyOf(day);
    return dates;
}

bool BreaksOff(Frequency frequency, const QStringList& eventDates, const QString& end, int step)
{
    return NextDate(frequency, OfKey(eventDates.first()), OfKey(eventDates.last()), step) <= OfKey(end);
}

QStringList RemovalDates(Frequency frequency, const QString& start, const QString& end)
{
    const GridDay first = OfKey(start), last = OfKey(end);
    QStringList dates{start};
    for (GridDay day = first; frequency != Frequency::Daily || day != last;) {
        day = NextDate(frequency, first, day, 1);
        dates += KeyOf(day);
        if (day > last) break; // also ends a daily walk whose end is before its start
    }
    return dates;
}
