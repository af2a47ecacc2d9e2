#include "platform/engine/damage.h"

namespace {
std::function<void(const QString&)> g_listener;
}

namespace damage {
void SetListener(std::function<void(const QString& path)> listener)
{
    g_listener = std::move(listener);
}

void Tell(const QString& path)
{
    const auto listener = g_listener; // which may take itself away
    if (listener) listener(path);
}
} // namespace damage
