// Damage in planner files, for the room that says so.
#pragma once

#include <QString>

#include <functional>

namespace damage {
// Called with a file's path at each error that means damage in it, inside the call that met it; must not use the engine
// nor raise. Null takes it away.
inline std::function<void(const QString& path)> g_listener;
inline void SetListener(std::function<void(const QString& path)> listener)
{
    g_listener = std::move(listener);
}

inline void Tell(const QString& path)
{
    const auto listener = g_listener; // which may take itself away
    if (listener) listener(path);
}
} // namespace damage
