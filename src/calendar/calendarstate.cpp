#include "calendar/calendarstate.h"

std::int16_t g_iYear = 0;
std::int16_t g_iMonth = 0;
std::int16_t g_iDay = 0;
std::int16_t g_iCurrentPanel = 0;
std::int16_t g_iLanguage = 0;
std::array<std::int16_t, 14> g_aiDaysInMonth{};
std::array<std::int16_t, CellCount> g_aiCalendar{};
std::array<std::int16_t, 1> g_aiLastDailyPanel{};
std::array<std::int16_t, CellCount> g_iAlarmIcon{};
std::array<std::int16_t, CellCount> g_aiLockState{};

void ResetCalendarStateForTests()
{
    g_iYear = g_iMonth = g_iDay = g_iCurrentPanel = g_iLanguage = 0;
    g_aiDaysInMonth = {};
    g_aiCalendar = {};
    g_aiLastDailyPanel = {};
    g_iAlarmIcon = {};
    g_aiLockState = {};
}
