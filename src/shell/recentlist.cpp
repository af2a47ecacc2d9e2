#include "shell/recentlist.h"

#include "hall/menus.h"
#include "plannerfile/plannerstate.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"

#include <array>

namespace {
using settings::RecentPlanners;

// Which entry is the open planner, or RecentPlanners. An entry longer than the path that begins with it counts as the
// same.
int FindOpenPlanner(const std::array<QString, RecentPlanners>& list)
{
    int entry = 0;
    while (entry < RecentPlanners &&
           list[static_cast<std::size_t>(entry)].toLower().left(g_sDBPath.size()) != g_sDBPath.toLower()) {
        ++entry;
    }
    return entry;
}
} // namespace

void RecentList::subLoadMRU(bool bRead)
{
    if (bRead) {
        ShowEntries();
    } else {
        WriteFirstVisible();
    }
}

void RecentList::ShowEntries()
{
    bool listed = true;
    for (int entry = 0; entry < RecentPlanners; ++entry) {
        const QString path = Read(settings::MRU[entry]);
        // The first empty key ends the list, whatever stands behind it.
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
    // On purpose the last two share a key: with none before it visible, the oldest goes to the third place.
    static constexpr std::array<int, RecentPlanners> keyOfItem = {0, 1, 2, 2};
    for (int entry = 0; entry < RecentPlanners; ++entry) {
        const MenuItem& item = m_menus.mnuMRU(entry);
        if (!item.Visible()) continue;
        Write(settings::MRU[keyOfItem[static_cast<std::size_t>(entry)]], item.Caption());
        return;
    }
}

void RecentList::subUpdateMRU()
{
    std::array<QString, RecentPlanners> list;
    for (int entry = 0; entry < RecentPlanners; ++entry)
        list[static_cast<std::size_t>(entry)] = Read(settings::MRU[entry]);
    const int match = FindOpenPlanner(list);
    if (match > 0) {
        // The entries before the match move down by one; with no match all do, and the oldest falls off.
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        const int last = qMin(match, RecentPlanners - 1);
        for (int entry = last; entry > 0; --entry) {
            Write(settings::MRU[entry], list[static_cast<std::size_t>(entry - 1)]);
        }
        Write(settings::MRU[0], g_sDBPath);
    }
    subLoadMRU(true);
}
