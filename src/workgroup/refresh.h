// Reads the shown cells of a workgroup's planner again, by hand and by timer: what others commit does not come by
// itself.
#pragma once

class Cells;
struct NetworkControls;
class Turn;

class Refresh
{
public:
    Refresh(Cells& cells, const NetworkControls& network, Turn& turn) : m_cells(cells), m_network(network), m_turn(turn)
    {
    }

    void subRefreshCells(); // refused while this user holds a day
    void picRefresh_MouseDown();
    void picRefresh_MouseUp();
    void tmAutoRefresh_Timer();

private:
    Cells& m_cells;
    const NetworkControls& m_network;
    Turn& m_turn;
};
