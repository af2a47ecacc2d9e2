// The frame of a day that this user has locked, for as long as the lock is held and wherever the caret is.
#pragma once

#include "calendar/calendarstate.h"
#include "hall/cells.h"
#include "plannerfile/plannerstate.h"

// In a personal planner a mark only says that the caret has been in the cell.
inline void FollowLocks(const Cells& cells)
{
    for (int cell = 1; cell <= CellCount; ++cell)
        if (cells.panelDay.Exists(cell)) cells.panelDay(cell).SetHeld(g_bDBShared && IsMarked(cell));
}
