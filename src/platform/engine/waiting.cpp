#include "platform/engine/waiting.h"

#include "platform/runtime/errortail.h"

namespace {
std::function<void()> g_before;
}

namespace waiting {
void SetBefore(std::function<void()> step)
{
    g_before = std::move(step);
}

void Before()
{
    if (g_before) Guarded(" in waiting, Before"_L1, g_before)();
}
} // namespace waiting
