// The timers of a workgroup's planner: unlocking an idle day and refreshing the cells. Read from the settings at an
// opening, changed by the network options.
#pragma once

#include <cstdint>

extern bool bGeneralUnlockEnable;   // unlock an idle day; also set by a lock if the settings say so
extern bool g_bAutoRefresh;         // refresh by timer
extern std::int32_t g_lUnlockDelay; // seconds; also read at each lock while the switch is on
extern std::int32_t g_lRefreshDelay;
extern std::int32_t g_lUnlockTicks; // seconds since the last input in a cell, the day view or the pictures
extern std::int32_t g_lRefreshTicks;

void ResetWorkgroupStateForTests();
