// The recent planners, in PLANNER.INI and in the File menu. Each update reads the keys again.
#pragma once

#include <QStringList>

class Menus;

class RecentList
{
public:
    explicit RecentList(Menus& menus) : m_menus(menus) {}

    void subLoadMRU(bool bRead); // true: file to menu; false: first visible entry to file
    void subUpdateMRU();         // moves g_sDBPath to the head

    // A planner that was created and not opened since is no entry of the list. The last one is kept apart.
    static void KeepCreated();     // g_sDBPath
    static QStringList Planners(); // the list and the created planner, the newest first

private:
    void ShowEntries();
    void WriteFirstVisible();
    static void FollowCreated(int match);

    Menus& m_menus;
};
