#include "recurrence/recurdates.h"

#include "calendar/moddate.h"
#include "calendar/modshow.h"

#include <array>

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

// Copies nothing: a run over all years that can be written reads keys by the million.
GridDay DateOf(QStringView key)
{
    const auto takeField = [&key] {
        int number = 0;
        qsizetype i = 0;
        for (; i < key.size() && key[i] != u'/'; ++i)
            number = number * 10 + key[i].digitValue();
        key = key.sliced(qMin(i + 1, key.size()));
        return number;
    };
    const int year = takeField();
    const int month = takeField();
    return {year, month, takeField()};
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

bool IsUpTo(const QString& current, const QString& end)
{
    return DateOf(current) <= DateOf(end);
}

struct FrequencyRow
{
    Frequency frequency;
    QStringView word;
    QString (*next)(const QString& start, const QString& current, std::int16_t step);
    bool (*continues)(const QString& start, const QString& current, const QString& end);
};

constexpr std::array<FrequencyRow, 4> Rows = {{
    {Frequency::Daily, u"DAILY",
     [](const QString&, const QString& current, std::int16_t step) { return fnGetNextDayDate(current, step); },
     fnContinueDaily},
    {Frequency::Weekly, u"WEEKLY",
     [](const QString&, const QString& current, std::int16_t step) { return fnGetNextWeekDate(current, step); },
     [](const QString&, const QString& current, const QString& end) { return fnContinueWeekly(current, end); }},
    {Frequency::Monthly, u"MONTHLY", fnGetNextMonthDate, fnContinueMonthly},
    {Frequency::Yearly, u"YEARLY", fnGetNextYearDate, fnContinueYearly},
}};

const FrequencyRow& RowOf(Frequency frequency)
{
    return Rows[static_cast<std::size_t>(frequency)];
}
} // namespace

QString WordOf(Frequency frequency)
{
    return RowOf(frequency).word.toString();
}

std::optional<Frequency> FrequencyOf(const QString& word)
{
    for (const FrequencyRow& row : Rows) {
        if (row.word == word) return row.frequency;
    }
    return {};
}

QString fnGetNextDayDate(const QString& sCurrent, std::int16_t iStep)
{
    GridDay date = DateOf(sCurrent);
    const int length = LengthOfMonth(date);
    for (int i = 0; i < iStep; ++i) {
        if (date.day == length) {
            date.day = 1;
            NextMonth(date);
        } else {
            ++date.day;
        }
    }
    return KeyOf(date);
}

QString fnGetNextWeekDate(const QString& sCurrent, std::int16_t iStep)
{
    constexpr int Week = 7;
    GridDay date = DateOf(sCurrent);
    const int length = LengthOfMonth(date);
    for (int i = 0; i < iStep; ++i) {
        if (date.day + Week > length) {
            date.day = Week - (length - date.day);
            NextMonth(date);
        } else {
            date.day += Week;
        }
    }
    return KeyOf(date);
}

QString fnGetNextMonthDate(const QString& sStart, const QString& sCurrent, std::int16_t iStep)
{
    GridDay date = DateOf(sCurrent);
    for (int i = 0; i < iStep; ++i)
        NextMonth(date);
    CutToMonth(date, DateOf(sStart).day);
    return KeyOf(date);
}

QString fnGetNextYearDate(const QString& sStart, const QString& sCurrent, std::int16_t iStep)
{
    GridDay date = DateOf(sCurrent);
    date.year += iStep;
    CutToMonth(date, DateOf(sStart).day);
    return KeyOf(date);
}

bool fnContinueDaily(const QString&, const QString& sCurrent, const QString& sEnd)
{
    return IsUpTo(sCurrent, sEnd);
}

bool fnContinueWeekly(const QString& sCurrent, const QString& sEnd)
{
    return IsUpTo(sCurrent, sEnd);
}

bool fnContinueMonthly(const QString&, const QString& sCurrent, const QString& sEnd)
{
    return IsUpTo(sCurrent, sEnd);
}

bool fnContinueYearly(const QString&, const QString& sCurrent, const QString& sEnd)
{
    return IsUpTo(sCurrent, sEnd);
}

bool fnCheckBackwardDate(const QString& sStart, const QString& sEnd)
{
    return OfEntry(sStart) <= OfEntry(sEnd);
}

bool IsDayOfItsMonth(const QString& dateKey)
{
    const GridDay date = DateOf(dateKey);
    return date.day <= LengthOfMonth(date);
}

QStringList EventDates(Frequency frequency, const QString& start, const QString& end, std::int16_t step)
{
    const FrequencyRow& row = RowOf(frequency);
    constexpr int LongestMonth = 31;
    QStringList dates{start};
    QString current = row.next(start, start, step);
    // A day that no month has comes of a long step, and counting on from it would never reach another month.
    while (row.continues(start, current, end) && DateOf(current).day <= LongestMonth) {
        dates += current;
        current = row.next(start, current, step);
    }
    return dates;
}

bool BreaksOff(Frequency frequency, const QStringList& eventDates, const QString& end, std::int16_t step)
{
    const FrequencyRow& row = RowOf(frequency);
    const QString& start = eventDates.first();
    return row.continues(start, row.next(start, eventDates.last(), step), end);
}

QStringList RemovalDates(Frequency frequency, const QString& start, const QString& end)
{
    const FrequencyRow& row = RowOf(frequency);
    const bool stopsAtEnd = frequency == Frequency::Daily;
    QStringList dates{start};
    QString current = start;
    while (!stopsAtEnd || current != end) {
        current = row.next(start, current, 1);
        dates += current;
        if (!row.continues(start, current, end)) break; // a daily walk as well, where the end lies before the start
    }
    return dates;
}
