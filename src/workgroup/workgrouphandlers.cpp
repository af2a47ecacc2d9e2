#include "workgroup/workgrouphandlers.h"

#include "editing/dayview.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "notes/heldday.h"
#include "notes/turn.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/timer.h"
#include "state/plannerstate.h"
#include "state/workgroupstate.h"
#include "workgroup/networkoptionform.h"

void WorkgroupHandlers::subRefreshCells()
{
    if (!m_network.picLock->Visible(1)) {
        m_turn(" in MainForm, picRefresh_Click"_L1, [] {});
        return;
    }
    m_heldDay.KeepInPlace(m_cells.CellToStayIn()); // a message box lets the idle timer go on
    m_network.picRefresh->ShowElement(0);
}

void WorkgroupHandlers::picRefresh_MouseDown()
{
    m_network.picRefresh->ShowElement(1);
}

void WorkgroupHandlers::picRefresh_MouseUp()
{
    subRefreshCells();
    m_network.picRefresh->ShowElement(0);
}

void WorkgroupHandlers::tmAutoRefresh_Timer()
{
    if (!g_bDBShared) m_network.tmAutoRefresh->SetEnabled(false);
    if (g_bAutoRefresh && g_lRefreshTicks >= g_lRefreshDelay) {
        if (m_heldDay.LooksFree()) subRefreshCells();
        g_lRefreshTicks = 0;
    }
    ++g_lRefreshTicks;
}

void WorkgroupHandlers::tmUnLock_Timer()
{
    if (++g_lUnlockTicks < g_lUnlockDelay) return;
    m_dayView.TakeTextAndClose();
    g_lUnlockTicks = 0;
    if (!m_heldDay.Commit()) return; // tried again after the next delay
    m_network.tmUnLock->SetEnabled(false);
    subRefreshCells();
}

void WorkgroupHandlers::mnuNetworkOptions_Click()
{
    NetworkOptionForm(m_cells.Client()->window(), m_network, m_server).exec();
}
