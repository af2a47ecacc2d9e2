// How days are unlocked and cells are read again by themselves: read from the settings by the opening, changed by the
// network options, with the clocks that the timers count on.
#pragma once

#include <cstdint>

extern bool bGeneralUnlockEnable;   // a day left idle is unlocked; a lock sets it where the settings say so
extern bool g_bAutoRefresh;         // the cells are read again by a timer
extern std::int32_t g_lUnlockDelay; // seconds; read anew at each lock while the switch is on
extern std::int32_t g_lRefreshDelay;
extern std::int32_t g_lUnlockTicks; // seconds since the user last showed life in a cell, the day view or the pictures
extern std::int32_t g_lRefreshTicks;

void ResetWorkgroupStateForTests();
