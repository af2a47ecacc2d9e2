// The plain half of the calendar's drawing: names, lengths of months, weekdays, colours, and the two maps that say
// which day or memo stands in which cell. Knows no widget.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

// Every fourth year, centuries too: the rule of the grid's month lengths, kept so that old planners' keys stay where
// they are. Weekdays come from the true calendar all the same.
bool fnIsLeapYear(int year);
int MonthLength(int year, int month); // by that rule; month 1 to 12

void subSetDaysInMonth(int year); // fills g_aiDaysInMonth
std::int16_t fnDaysInMonth();     // of g_iMonth in the table as it stands; error 9 beyond 0 to 13
std::int16_t fnFirstDayOfMonth(); // weekday of the first of the shown month, 1 Sunday to 7; refreshes the table
int Weekday(int year, int month, int day); // 1 Sunday to 7 Saturday; a day past the month's end rolls over

QString fnMonthName(int month);   // upper case, in g_iLanguage; empty for any other month or language
QString MonthWord(int month);     // "July", likewise
QString MonthTitle();             // "JULY 1999", the title at the foot of the calendar
QString fnDayOfWeekName(int day); // 0 "Sun" to 6 "Sat", else empty

// The value of an upper-case colour name, blue, green, red from high to low; any other text is 0, black.
std::uint32_t fnColorInHex(const QString& name);

// One cell or slot: the day it stands for, or the number of a memo.
struct DaySlot
{
    bool isMemo = false;
    int number = 0;
    QString Caption() const; // " 7" or "Memo3"
};

// The month's grid of 35 cells, index cell - 1: firstWeekday 1 to 7, days that do not fit wrap to the first row.
std::array<DaySlot, 35> MonthGrid(int firstWeekday, int length);

// The map of the week view, six rows of seven: days are 1 to length, memos go on from length + 1.
std::array<std::int16_t, 42> WeekMap(int firstWeekday, int length);

// The slot of that map that begins the row of a day. A day past the month's end counts into the next month.
int FirstSlotOfWeek(int year, int month, int day);

bool IsMemoCaption(const QString& caption);

// The day or memo of a cell with this caption in the shown month, as it is read out: "Wednesday, March 17, 1999",
// "Memo 2 of March 1999".
QString DayInWords(const QString& caption);

// The date key of a cell with this caption in the shown month.
QString CellKey(const QString& caption);
