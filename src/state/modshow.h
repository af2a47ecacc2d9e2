// The computing half of the calendar's drawing: names, month lengths, weekdays, colours, and the two maps from cells to
// days and memos. Knows no widget.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

// Every fourth year, centuries included. The rule is kept so that keys of old planners stay valid. Weekdays follow the
// true calendar.
bool fnIsLeapYear(int year);
int MonthLength(int year, int month); // by that rule; month 1 to 12

void subSetDaysInMonth(int year);          // fills g_aiDaysInMonth
std::int16_t fnDaysInMonth();              // table entry of g_iMonth; errors::SubscriptOutOfRange beyond 0 to 13
std::int16_t fnFirstDayOfMonth();          // weekday of the shown month's first, 1 Sunday to 7; refreshes the table
int Weekday(int year, int month, int day); // 1 Sunday to 7 Saturday; a day past the month's end rolls over

QString fnMonthName(int month);   // upper case, in g_iLanguage; empty if either is unknown
QString MonthWord(int month);     // "July", likewise
QString MonthTitle();             // "JULY 1999", the title at the foot of the calendar
QString fnDayOfWeekName(int day); // 0 "Sun" to 6 "Sat", else empty

// The value of an upper-case colour name: blue, green, red from high to low. Other texts give 0, black.
std::uint32_t fnColorInHex(const QString& name);

// The day or memo of a cell.
struct DaySlot
{
    bool isMemo = false;
    int number = 0;
    QString Caption() const; // " 7" or "Memo3"
};

// The 35 cells of a month, index cell - 1. firstWeekday is 1 to 7. Days that do not fit wrap to the first row.
std::array<DaySlot, 35> MonthGrid(int firstWeekday, int length);

// The week view's map, six rows of seven: days are 1 to length, memos continue from length + 1.
std::array<std::int16_t, 42> WeekMap(int firstWeekday, int length);

// The first slot of the day's row in that map. A day past the month's end counts into the next month.
int FirstSlotOfWeek(int year, int month, int day);

bool IsMemoCaption(const QString& caption);

// The cell with this caption in the shown month, in words: "Wednesday, March 17, 1999", "Memo 2 of March 1999".
QString DayInWords(const QString& caption);

// The date key of the cell with this caption in the shown month.
QString CellKey(const QString& caption);
