#include "plannerfile/plannerhandlers.h"

#include "calendar/redraw.h"
#include "calendar/viewmode.h"
#include "hall/menuitem.h"
#include "plannerfile/creation.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "platform/desktop/filesystem.h"
#include "platform/runtime/errortail.h"

#include <QFileInfo>

void PlannerHandlers::mnuNew_Click()
{
    ErrorTail{" in MainForm, mnuNew_Click"_L1}([&] { m_creation.subNewPlanner(); });
}

void PlannerHandlers::mnuOpen_Click()
{
    ErrorTail{" in MainForm, mnuOpen_Click"_L1}([&] { m_opening.subOpenPlanner(); });
}

void PlannerHandlers::mnuSave_Click()
{
    const ErrorTail tail(" in MainForm, mnuSave_Click"_L1);
    tail([&] { m_notes.subUpdateQMTDatabase(); });
    tail([&] { m_notes.subSeekQMTDatabase(); });
}

void PlannerHandlers::mnuMRU_Click(const MenuItem& entry)
{
    OpenListed(entry.Caption());
}

void PlannerHandlers::OpenFile(const QString& path)
{
    filesystem::Remember(path);
    g_sDBTitle = QFileInfo(path).fileName().toLower();
    OpenListed(path.toLower());
}

void PlannerHandlers::OpenListed(const QString& path)
{
    m_opening.LeaveLockedDay();
    m_notes.subUpdateQMTDatabase();
    if (m_viewMode.GetViewMode() == ViewMode::Week) m_redraw.subDisplayWeek();
    if (m_viewMode.GetViewMode() == ViewMode::Month) m_redraw.subDisplayMonth();
    g_sDBPath = path;
    m_opening.AskHowAndOpen();
}
