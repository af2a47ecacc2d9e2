// The engine goes to drives and servers, and any of them may keep the program waiting, for ever if it is killed then.
#pragma once

#include "platform/runtime/errortail.h"

#include <functional>

namespace waiting {
// What is to be done before each such step; it must be quick where there is nothing to do, and not use the engine. Null
// takes it away.
inline std::function<void()> g_before;
inline void SetBefore(std::function<void()> step)
{
    g_before = std::move(step);
}

// To be called before such a step. Raises nothing.
inline void Before()
{
    if (g_before) Guarded(" in waiting, Before"_L1, g_before)();
}
} // namespace waiting
