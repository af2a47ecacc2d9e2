// The handlers of a workgroup's planner except the day lock. The shown cells are read again by command and by timer,
// since a file does not report what others commit. An idle day is unlocked.
#pragma once

class Cells;
class DayView;
class HeldDay;
struct NetworkControls;
class ServerMove;
class Turn;

class WorkgroupHandlers
{
public:
    WorkgroupHandlers(Cells& cells, const NetworkControls& network, Turn& turn, HeldDay& heldDay, DayView& dayView,
                      ServerMove& server)
        : m_cells(cells), m_network(network), m_turn(turn), m_heldDay(heldDay), m_dayView(dayView), m_server(server)
    {
    }

    void subRefreshCells(); // refused while this user holds a day
    void picRefresh_MouseDown();
    void picRefresh_MouseUp();
    void tmAutoRefresh_Timer();
    void tmUnLock_Timer();
    void mnuNetworkOptions_Click();

private:
    Cells& m_cells;
    const NetworkControls& m_network;
    Turn& m_turn;
    HeldDay& m_heldDay;
    DayView& m_dayView;
    ServerMove& m_server;
};
