#include "workgroup/refresh.h"

#include "calendar/calendarstate.h"
#include "calendar/moddate.h"
#include "calendar/modshow.h"
#include "calendar/turn.h"
#include "hall/cells.h"
#include "hall/networkcontrols.h"
#include "plannerfile/plannerstate.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/timer.h"
#include "platform/desktop/msgbox.h"
#include "settings/messages.h"
#include "workgroup/workgroupstate.h"

void Refresh::subRefreshCells()
{
    if (!m_network.picLock->Visible(1)) {
        m_turn(" in MainForm, picRefresh_Click"_L1, [] {});
        return;
    }
    const int held = m_cells.CellToStayIn(); // the idle timer goes on behind the box
    MsgBox(fnFormatDateKey(CellKey(m_cells.panelDay(held).Caption())) + u" is locked, please unlock first."_s,
           msgbox::Exclamation, messages::HelpWizard);
    m_cells.tbDay(held).setFocus();
    m_network.picRefresh->ShowElement(0);
}

void Refresh::picRefresh_MouseDown()
{
    m_network.picRefresh->ShowElement(1);
}

void Refresh::picRefresh_MouseUp()
{
    subRefreshCells();
    m_network.picRefresh->ShowElement(0);
}

void Refresh::tmAutoRefresh_Timer()
{
    if (!g_bDBShared) m_network.tmAutoRefresh->SetEnabled(false);
    if (g_bAutoRefresh && g_lRefreshTicks >= g_lRefreshDelay) {
        if (m_network.picLock->Visible(0)) subRefreshCells();
        g_lRefreshTicks = 0;
    }
    ++g_lRefreshTicks;
}
