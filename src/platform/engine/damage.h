// Reports damage in planner files to a listener.
#pragma once

#include <QString>

#include <functional>

namespace damage {
// Called with the file's path at each error that means damage, inside the call that found it. The listener must not use
// the engine or raise. Null removes it.
inline std::function<void(const QString& path)> g_listener;
inline void SetListener(std::function<void(const QString& path)> listener)
{
    g_listener = std::move(listener);
}

inline void Tell(const QString& path)
{
    const auto listener = g_listener; // the listener may remove itself
    if (listener) listener(path);
}
} // namespace damage
