// The calendar's state: the shown period, the selected day, the current cell. Comments name the writers.
#pragma once

#include <array>
#include <cstdint>

inline constexpr int FirstMonthCell = 1, LastMonthCell = 35;
inline constexpr int FirstWeekCell = 36, LastWeekCell = 42;
inline constexpr int CellCount = 42;

extern std::int16_t g_iYear;  // shown year; GoToToday, redraws, fast search, word search
extern std::int16_t g_iMonth; // shown month, 1 to 12; as g_iYear
extern std::int16_t g_iDay;   // selected day of the month; GoToToday, a click on a day in month view, a week move
                              // into another month, word search
extern std::int16_t g_iCurrentPanel; // current cell, 1 to 42, or 0; cell events, redraws, reads of the view, opening,
                                     // the day view, a click on the week's picture, a refused move, a new layout
extern std::int16_t g_iLanguage;     // of month names: 0 English, 1 German, 2 French; start-up

extern std::array<std::int16_t, 14> g_aiDaysInMonth;      // lengths at 1 to 12, else 0; subSetDaysInMonth
extern std::array<std::int16_t, CellCount> g_aiCalendar;  // the week view's map, index slot - 1; week redraw
extern std::array<std::int16_t, CellCount> g_aiLockState; // index cell - 1; personal: entered since the last save;
                                                          // workgroup: locked by this user; cell events, QMTDB, the
                                                          // day view, the day lock, recurring events

// Cells are 1 to 42; errors::SubscriptOutOfRange for any other.
bool IsMarked(int cell);
void Mark(int cell, bool marked);
void ClearMarks();
int MarkedCell(int except = 0); // the first marked cell, 0 for none

void GoToToday(); // sets year, month and day by the clock; draws nothing
int ShownToday(); // today's day of the month if its month is shown, otherwise 0

void ResetCalendarStateForTests();
