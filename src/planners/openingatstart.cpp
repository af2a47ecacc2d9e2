#include "planners/networkmode.h"
#include "planners/opening.h"
#include "planners/startplanner.h"
#include "platform/desktop/filesystem.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"
#include "state/plannerstate.h"
#include "state/workgroupstate.h"

#include <QFileInfo>

#include <utility>

// Only once it is open: a planner that does not open would report that at every start. An answer that changes nothing
// leaves the start-up options as they are.
void Opening::KeepStartPlanner()
{
    const auto opens = std::exchange(m_atEveryStart, {});
    if (!opens) return;
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    WriteStartPlanner(*opens);
    if (*opens) Write(settings::LoadWorkgroup, g_bDBShared ? 1 : 0);
}

void Opening::OpenFollowed(const QString& path, bool shared)
{
    if (path.isEmpty()) return subAutoload();
    filesystem::Remember(path);
    g_sDBPath = path.toLower();
    g_sDBTitle = QFileInfo(path).fileName().toLower();
    m_networkMode.subSetNetworkMode(shared);
    subOpenDBNoDlg(!shared);
}

void Opening::subAutoload()
{
    const QString path = Read(settings::LoadFilePath);
    if (Read(settings::LoadCondition) != 1 || path.isEmpty()) return;
    g_sDBPath = path;
    g_sDBTitle = Read(settings::LoadFileTitle);
    const bool shared = Read(settings::LoadWorkgroup) != 0;
    m_networkMode.subSetNetworkMode(shared);
    subOpenDBNoDlg(!shared);
}
