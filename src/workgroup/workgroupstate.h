// Settings of the workgroup as they were read when the planner was opened.
#pragma once

#include <cstdint>

extern bool bGeneralUnlockEnable;   // a day left idle is unlocked; the opening, network options, a lock
extern bool g_bAutoRefresh;         // the cells are read again by a timer; the opening, network options
extern std::int32_t g_lUnlockDelay; // seconds
extern std::int32_t g_lRefreshDelay;
extern std::int32_t g_lUnlockTicks; // seconds since the user last showed life in a cell
extern std::int32_t g_lRefreshTicks;

void ResetWorkgroupStateForTests();
