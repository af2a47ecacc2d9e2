// Why an old planner cannot be converted, as error messages. All of them raise NotADatabase.
#pragma once

#include "platform/engine/jet/jetstream.h"

#include <QString>

namespace jeterrors {
[[noreturn]] void Raise(const QString& name, int reason); // reason: a jetstream::Reason
[[noreturn]] void RaiseDamaged(const QString& name);
[[noreturn]] void RaiseNoPlanner(const QString& name, const QString& missing); // missing: a table or field
} // namespace jeterrors
