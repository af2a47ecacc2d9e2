// What keeps an old planner from being converted, in words. All of these are NotADatabase.
#pragma once

#include "platform/engine/jet/jetstream.h"

#include <QString>

namespace jeterrors {
[[noreturn]] void Raise(const QString& name, int reason); // one of jetstream::Reason
[[noreturn]] void RaiseDamaged(const QString& name);
[[noreturn]] void RaiseNoPlanner(const QString& name, const QString& missing); // which table
} // namespace jeterrors
