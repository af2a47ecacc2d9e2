#include "recurrence/recurringevents.h"

#include "calendar/calendarstate.h"
#include "hall/cells.h"
#include "plannerfile/refusals.h"
#include "recurrence/recurform.h"

void RecurringEvents::mnuRecurse_Click()
{
    if (RefusesWithoutPlanner() || RefusesShared(u"Global recurring event"_s)) return;
    // After a redraw no cell is current, though the caret may still stand in one.
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    RecurForm(m_cells.Client()->window(), m_cells, m_notes, m_viewMode, m_fontCommand).exec();
}
