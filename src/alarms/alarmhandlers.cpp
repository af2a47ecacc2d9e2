#include "alarms/alarmhandlers.h"

#include "alarms/alarmform.h"
#include "calendar/calendarstate.h"
#include "calendar/lockedday.h"
#include "hall/cells.h"
#include "hall/sidebar.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/refusals.h"
#include "platform/controls/picturebutton.h"

namespace {
bool RefusesWorkgroup()
{
    return RefusesShared(u"Global alarm settings"_s);
}
} // namespace

// After a redraw no cell is current, though the caret may still stand in one.
int AlarmHandlers::CurrentCell()
{
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    return g_iCurrentPanel;
}

void AlarmHandlers::OpenNew()
{
    AlarmForm(AlarmForm::Mode::New, CurrentCell(), m_cells, m_turn, m_tmAlarm).exec();
}

void AlarmHandlers::mnuNewAlarm_Click()
{
    if (!RefusesWithoutPlanner() && !RefusesWorkgroup()) OpenNew();
}

void AlarmHandlers::mnuChangeAlarms_Click()
{
    if (RefusesWithoutPlanner() || RefusesWorkgroup()) return;
    AlarmForm(AlarmForm::Mode::Browse, CurrentCell(), m_cells, m_turn, m_tmAlarm).exec();
}

void AlarmHandlers::picAlarm_MouseDown()
{
    if (!RefusesWithoutPlanner()) m_sidebar.picAlarm->ShowElement(1);
}

void AlarmHandlers::picAlarm_MouseUp()
{
    m_sidebar.picAlarm->ShowElement(0);
}

void AlarmHandlers::picAlarm_Click()
{
    if (HasPlanner() && !RefusesWorkgroup()) OpenNew();
}

// The end of the browsing reads the cells again: what was typed into a locked day is stored before.
void AlarmHandlers::btnTunes_Click(int Index)
{
    if (RefusesWithoutPlanner()) return;
    if (g_bDBShared && !m_lockedDay.Commit()) return;
    AlarmForm(AlarmForm::Mode::Browse, Index, m_cells, m_turn, m_tmAlarm).exec();
}
