// The main window's commands on alarms, under their own names: the ways into the editor.
#pragma once

class Cells;
class LockedDay;
class Timer;
class Turn;

class AlarmHandlers
{
public:
    AlarmHandlers(Cells& cells, Timer& tmAlarm, Turn& turn, LockedDay& lockedDay)
        : m_cells(cells), m_tmAlarm(tmAlarm), m_turn(turn), m_lockedDay(lockedDay)
    {
    }

    // In a personal planner alone; they say so elsewhere.
    void mnuNewAlarm_Click();
    void mnuChangeAlarms_Click();
    void btnTunes_Click(int Index); // in a workgroup's planner too

private:
    int CurrentCell();

    Cells& m_cells;
    Timer& m_tmAlarm;
    Turn& m_turn;
    LockedDay& m_lockedDay;
};
