// The planners last opened, in PLANNER.INI and in the File menu. Each update reads the keys again.
#pragma once

class Menus;

class RecentList
{
public:
    explicit RecentList(Menus& menus) : m_menus(menus) {}

    void subLoadMRU(bool bRead); // true: the menu from the file; false: the first visible entry back to the file
    void subUpdateMRU();         // g_sDBPath to the head of the list

private:
    void ShowEntries();
    void WriteFirstVisible();

    Menus& m_menus;
};
