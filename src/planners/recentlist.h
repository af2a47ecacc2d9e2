// The recent planners, in PLANNER.INI and in the File menu. Each update reads the keys again.
#pragma once

class Menus;

class RecentList
{
public:
    explicit RecentList(Menus& menus) : m_menus(menus) {}

    void subLoadMRU(bool bRead); // true: file to menu; false: first visible entry to file
    void subUpdateMRU();         // moves g_sDBPath to the head

private:
    void ShowEntries();
    void WriteFirstVisible();

    Menus& m_menus;
};
