// The main window's commands on alarms, under their own names: the ways into the editor.
#pragma once

class Cells;
class LockedDay;
struct Sidebar;
class Timer;
class Turn;

class AlarmHandlers
{
public:
    AlarmHandlers(Cells& cells, const Sidebar& sidebar, Timer& tmAlarm, Turn& turn, LockedDay& lockedDay)
        : m_cells(cells), m_sidebar(sidebar), m_tmAlarm(tmAlarm), m_turn(turn), m_lockedDay(lockedDay)
    {
    }

    void mnuNewAlarm_Click();
    void mnuChangeAlarms_Click();
    void picAlarm_MouseDown();
    void picAlarm_MouseUp();
    void picAlarm_Click();
    void btnTunes_Click(int Index); // in a workgroup's planner too

private:
    void OpenNew();
    int CurrentCell();

    Cells& m_cells;
    const Sidebar& m_sidebar;
    Timer& m_tmAlarm;
    Turn& m_turn;
    LockedDay& m_lockedDay;
};
