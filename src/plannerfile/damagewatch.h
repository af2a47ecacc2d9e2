// Warns when the open planner turns out to be damaged.
#pragma once

class QString;

// From now on, warns once in a run, and says what to do, when a read, a save or the daily backup finds damage in this
// planner.
void WatchForDamage(const QString& planner);
