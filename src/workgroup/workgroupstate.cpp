#include "workgroup/workgroupstate.h"

bool bGeneralUnlockEnable = false;
bool g_bAutoRefresh = false;
std::int32_t g_lUnlockDelay = 0;
std::int32_t g_lRefreshDelay = 0;
std::int32_t g_lUnlockTicks = 0;
std::int32_t g_lRefreshTicks = 0;
