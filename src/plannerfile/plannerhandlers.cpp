#include "plannerfile/plannerhandlers.h"

#include "calendar/redraw.h"
#include "calendar/viewmode.h"
#include "hall/menuitem.h"
#include "plannerfile/creation.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"

void PlannerHandlers::mnuNew_Click()
{
    ErrorTail{QLatin1StringView(" in MainForm, mnuNew_Click")}([&] { m_creation.subNewPlanner(); });
}

void PlannerHandlers::mnuOpen_Click()
{
    ErrorTail{QLatin1StringView(" in MainForm, mnuOpen_Click")}([&] { m_opening.subOpenPlanner(); });
}

void PlannerHandlers::mnuSave_Click()
{
    const ErrorTail tail(QLatin1StringView(" in MainForm, mnuSave_Click"));
    tail([&] { m_notes.subUpdateQMTDatabase(); });
    tail([&] { m_notes.subSeekQMTDatabase(); });
}

void PlannerHandlers::mnuMRU_Click(const MenuItem& entry)
{
    // The list is rebuilt by the opening; the path must outlive that.
    const QString path = entry.Caption();
    m_notes.subUpdateQMTDatabase();
    if (m_viewMode.GetViewMode() == ViewMode::Week) m_redraw.subDisplayWeek();
    if (m_viewMode.GetViewMode() == ViewMode::Month) m_redraw.subDisplayMonth();
    g_sDBPath = path;
    m_opening.AskHowAndOpen();
}
