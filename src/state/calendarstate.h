// The calendar's state: what is shown, which day is selected, which cell is current. Plain variables, shared by all.
#pragma once

#include <array>
#include <cstdint>

inline constexpr int FirstMonthCell = 1, LastMonthCell = 35;
inline constexpr int FirstWeekCell = 36, LastWeekCell = 42;
inline constexpr int CellCount = 42;

extern std::int16_t g_iYear;         // shown year; written by GoToToday, the redraws, fast search, the word search
extern std::int16_t g_iMonth;        // shown month, 1 to 12; written with g_iYear
extern std::int16_t g_iDay;          // selected day of the month; GoToToday, a click on a month's day, a week move
                                     // across a month, the word search
extern std::int16_t g_iCurrentPanel; // current cell, 1 to 42, or 0; cell events, redraws, reads of the view, opening,
                                     // the day view, a click on the week's picture, a refused move, a new layout
extern std::int16_t g_iLanguage;     // of the month names: 0 English, 1 German, 2 French; start-up

extern std::array<std::int16_t, 14> g_aiDaysInMonth;      // lengths at 1 to 12, else 0; subSetDaysInMonth
extern std::array<std::int16_t, CellCount> g_aiCalendar;  // map of the month, slot - 1; the week redraw
extern std::array<std::int16_t, CellCount> g_aiLockState; // cell - 1: personal: entered since the last save;
                                                          // shared: locked by this user. By Mark and ClearMarks:
                                                          // cell events, QMTDB, the day view, the day lock, the
                                                          // window of recurring events

// Cells by their number, 1 to 42: error 9 for any other.
bool IsMarked(int cell);
void Mark(int cell, bool marked);
void ClearMarks();
int MarkedCell(int except = 0); // the first that is marked, 0 for none

void GoToToday(); // year, month and day by the clock; draws nothing

void ResetCalendarStateForTests();
