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

// Visits the dates to write, the start first.
template <typename Visit>
void VisitDates(Frequency frequency, const GridDay& first, const GridDay& last, int step, Visit visit)
{
    constexpr int LongestMonth = 31;
    GridDay day = first;
    do {
        visit(day);
        day = NextDate(frequency, first, day, step);
        // A long step can lead to a day beyond 31, from which no later month can be reached.
    } while (day <= last && day.day <= LongestMonth);
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
    QStringList dates;
    VisitDates(frequency, OfKey(start), OfKey(end), step, [&](const GridDay& day) { dates += KeyOf(day); });
    return dates;
}

QString EventInWords(Frequency frequency, const QString& start, const QString& end, int step)
{
    static constexpr const char* units[] = {"day", "week", "month", "year"};
    const QString unit = QString::fromLatin1(units[static_cast<int>(frequency)]);
    int count = 0;
    GridDay last;
    VisitDates(frequency, OfKey(start), OfKey(end), step, [&](const GridDay& day) {
        ++count;
        last = day;
    });
    const QString every = step == 1 ? u"Every %1"_s.arg(unit) : u"Every %1 %2s"_s.arg(step).arg(unit);
    if (count == 1) return u"%1: 1 day, %2."_s.arg(every, fnFormatDateKey(start));
    return u"%1: %2 days, from %3 to %4."_s.arg(every).arg(count).arg(fnFormatDateKey(start),
                                                                      fnFormatDateKey(KeyOf(last)));
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
