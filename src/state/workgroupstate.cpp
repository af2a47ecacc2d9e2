#include "state/workgroupstate.h"

bool bGeneralUnlockEnable = false;
bool g_bAutoRefresh = false;
std::int32_t g_lUnlockDelay = 0;
std::int32_t g_lRefreshDelay = 0;
std::int32_t g_lUnlockTicks = 0;
std::int32_t g_lRefreshTicks = 0;

void ResetWorkgroupStateForTests()
{
    bGeneralUnlockEnable = g_bAutoRefresh = false;
    g_lUnlockDelay = g_lRefreshDelay = g_lUnlockTicks = g_lRefreshTicks = 0;
}
