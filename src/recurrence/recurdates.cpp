#include "recurrence/recurdates.h"

#include "calendar/moddate.h"
#include "calendar/modshow.h"
#include "platform/runtime/language.h"

#include <array>
#include <tuple>

namespace {
// In plain integers: a long step can leave 16 bits, and the year the four digits of a key.
struct Date
{
    int year;
    int month;
    int day;

    QString Key() const { return TrimmedStr(year) + u'/' + TrimmedStr(month) + u'/' + TrimmedStr(day); }
    int LengthOfMonth() const { return MonthLength(year, month); }
    void NextMonth()
    {
        month = month == 12 ? 1 : month + 1;
        if (month == 1) ++year;
    }
    auto InOrder() const { return std::tie(year, month, day); }
};

// Copies nothing: a run over all years that can be written reads keys by the million.
Date DateOf(QStringView key)
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

Date OfEntry(const QString& entryDate)
{
    return {fnGetYear(entryDate), fnGetMonth(entryDate), fnGetDay(entryDate)};
}

void CutToMonth(Date& date, int wantedDay)
{
    const int length = date.LengthOfMonth();
    if (wantedDay >= length) date.day = length;
}

bool IsUpTo(const QString& current, const QString& end)
{
    return DateOf(current).InOrder() <= DateOf(end).InOrder();
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
    Date date = DateOf(sCurrent);
    const int length = date.LengthOfMonth();
    for (int i = 0; i < iStep; ++i) {
        if (date.day == length) {
            date.day = 1;
            date.NextMonth();
        } else {
            ++date.day;
        }
    }
    return date.Key();
}

QString fnGetNextWeekDate(const QString& sCurrent, std::int16_t iStep)
{
    constexpr int Week = 7;
    Date date = DateOf(sCurrent);
    const int length = date.LengthOfMonth();
    for (int i = 0; i < iStep; ++i) {
        if (date.day + Week > length) {
            date.day = Week - (length - date.day);
            date.NextMonth();
        } else {
            date.day += Week;
        }
    }
    return date.Key();
}

QString fnGetNextMonthDate(const QString& sStart, const QString& sCurrent, std::int16_t iStep)
{
    Date date = DateOf(sCurrent);
    for (int i = 0; i < iStep; ++i)
        date.NextMonth();
    CutToMonth(date, DateOf(sStart).day);
    return date.Key();
}

QString fnGetNextYearDate(const QString& sStart, const QString& sCurrent, std::int16_t iStep)
{
    Date date = DateOf(sCurrent);
    date.year += iStep;
    CutToMonth(date, DateOf(sStart).day);
    return date.Key();
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
    return OfEntry(sStart).InOrder() <= OfEntry(sEnd).InOrder();
}

bool IsDayOfItsMonth(const QString& dateKey)
{
    const Date date = DateOf(dateKey);
    return date.day <= date.LengthOfMonth();
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
