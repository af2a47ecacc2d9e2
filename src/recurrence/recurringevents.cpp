#include "recurrence/recurringevents.h"

#include "calendar/calendarstate.h"
#include "hall/cells.h"
#include "hall/sidebar.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/refusals.h"
#include "platform/controls/picturebutton.h"
#include "recurrence/recurform.h"

void RecurringEvents::mnuRecurse_Click()
{
    if (!RefusesWithoutPlanner()) Open();
}

void RecurringEvents::picRecurse_MouseDown()
{
    if (!RefusesWithoutPlanner()) m_sidebar.picRecurse->ShowElement(1);
}

void RecurringEvents::picRecurse_MouseUp()
{
    m_sidebar.picRecurse->ShowElement(0);
}

void RecurringEvents::picRecurse_Click()
{
    if (HasPlanner()) Open();
}

void RecurringEvents::Open()
{
    if (RefusesShared(u"Global recurring event"_s)) return;
    // After a redraw no cell is current, though the caret may still stand in one.
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    RecurForm(m_cells.Client()->window(), m_cells, m_notes, m_viewMode, m_fontCommand).exec();
}
