// A callback before slow steps. A drive or server may keep the program waiting until the person kills it.
#pragma once

#include "platform/runtime/errortail.h"

#include <QScopedValueRollback>

#include <functional>

namespace waiting {
// Runs before each such step. It must return quickly if it has nothing to do, and must not use the engine. Null removes
// it.
inline std::function<void()> g_before;
inline void SetBefore(std::function<void()> step)
{
    g_before = std::move(step);
}

// Call this before such a step. Raises nothing.
inline void Before()
{
    if (g_before) Guarded(" in waiting, Before"_L1, g_before)();
}

// During its life, where somebody else is writing, a look-up in a planner's file raises Busy at once.
class NotForOthers
{
public:
    static bool IsOn() { return s_on; }

private:
    inline static bool s_on = false;
    const QScopedValueRollback<bool> m_back{s_on, true};
};
} // namespace waiting
