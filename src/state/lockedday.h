// The day that this user holds in a workgroup's planner, as lower floors see it. HeldDay implements it.
#pragma once

class LockedDay
{
public:
    // Stores the text and unlocks; true also if no day is locked by hand. False: storing failed, and the cell must keep
    // its day.
    virtual bool Commit() = 0;

    // Unlocks without storing, for the exit and for opening another planner. The planner's next opening offers the
    // text.
    virtual void LeaveBehind() = 0;

protected:
    ~LockedDay() = default;
};
