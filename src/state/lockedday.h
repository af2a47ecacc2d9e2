// The day that this user holds in a workgroup's planner, for those who are about to show other days. HeldDay knows
// how to let go of it; those below it ask through this.
#pragma once

class LockedDay
{
public:
    // Stores what was typed and unlocks; true where no day is held by hand. False: it could not be stored, and the cell
    // must stay what it is.
    virtual bool Commit() = 0;

    // Lets go of it unstored, as the exit and the opening of another planner do: what was typed is offered when its
    // planner is next opened.
    virtual void LeaveBehind() = 0;

protected:
    ~LockedDay() = default;
};
