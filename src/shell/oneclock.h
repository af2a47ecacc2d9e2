// Which program of a session rings for a planner: a window that has it open, or else one clock in the tray. The names
// of the session bus decide it. Without a bus the programs know nothing of each other.
#pragma once

#include <QString>

namespace oneclock {
QString AnyClock();                      // the bus name of the clocks; the bus keeps a queue of them
QString ClockOf(const QString& planner); // the bus name of the one that rings for it

bool Claim(const QString& planner);    // for a clock; false if another program rings. A window takes it away again.
void TakeOver(const QString& planner); // for the window; an empty one lets go of the last
} // namespace oneclock
