#include "planners/recentlist.h"

#include "hall/menus.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"
#include "state/plannerstate.h"

#include <QStringList>

using settings::RecentPlanners;

void RecentList::subLoadMRU(bool bRead)
{
    if (bRead)
        ShowEntries();
    else
        WriteFirstVisible();
}

void RecentList::ShowEntries()
{
    bool listed = true;
    for (int entry = 0; entry < RecentPlanners; ++entry) {
        const QString path = Read(settings::MRU[entry]);
        // The first empty key ends the list.
        listed = listed && !path.isEmpty();
        MenuItem& item = m_menus.mnuMRU(entry);
        if (listed) {
            m_menus("mnuMRUHyphen"_L1).SetVisible(true);
            item.SetCaption(path);
        }
        item.SetVisible(listed);
    }
}

void RecentList::WriteFirstVisible()
{
    for (int entry = 0; entry < RecentPlanners; ++entry) {
        const MenuItem& item = m_menus.mnuMRU(entry);
        if (!item.Visible()) continue;
        // The last two entries share a key on purpose: if only the oldest is visible, it goes to the third key.
        return Write(settings::MRU[qMin(entry, 2)], item.Caption());
    }
}

void RecentList::subUpdateMRU()
{
    QStringList list;
    for (const TextSetting& entry : settings::MRU)
        list += Read(entry);
    // An entry that begins with the path counts as the same planner. Without a match the oldest is dropped.
    int match = 0;
    while (match < RecentPlanners - 1 && !list.at(match).toLower().startsWith(g_sDBPath.toLower()))
        ++match;
    if (match > 0) {
        list.move(match, 0);
        list.front() = g_sDBPath;
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        for (int entry = 0; entry <= match; ++entry)
            Write(settings::MRU[entry], list.at(entry));
    }
    subLoadMRU(true);
}
