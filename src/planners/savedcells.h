// What stands in the cells goes into the planner before a command reads or writes its file.
#pragma once

class LockedDay;
class QMTDB;

// The cells can be typed into as before. False after a message: some notes could not be saved. The verb names what the
// person wants to do: "export".
bool SaveCellsBefore(const char* verb, QMTDB& notes, LockedDay& lockedDay);
