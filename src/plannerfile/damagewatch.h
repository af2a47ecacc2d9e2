// Says that the open planner has turned out to be damaged.
#pragma once

class QString;

// From now on: says so once in a run, with what to do, when a read, a save or the day's copy of this planner has met
// damage.
void WatchForDamage(const QString& planner);
