// Which program rings for a planner if the person wants the clock in the tray: a window that has it open, or else one
// clock. The names of the session bus decide it. Without a bus the programs know nothing of each other.
#pragma once

#include <QObject>

#include <functional>

namespace oneclock {
QString AnyClock(); // the bus name of the clocks; the bus keeps a queue of them

// For a clock: false if another program rings for the planner. The event loop runs onLost, as long as the context is
// there, when a window takes it over.
bool Claim(const QString& planner, QObject* context, const std::function<void()>& onLost);

// For a window: it has opened this planner, or none (empty), and lets go of the last one. Does not wait.
void Hold(const QString& planner);
} // namespace oneclock
