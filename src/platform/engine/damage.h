// Damage in planner files, for whoever must say so.
#pragma once

#include <QString>

#include <functional>

namespace damage {
// Called with a file's path at each error that means damage in it, inside the call that met it; must not use the engine
// nor raise. Null takes it away.
void SetListener(std::function<void(const QString& path)> listener);
void Tell(const QString& path);
} // namespace damage
