// Shows or hides the controls of a workgroup's planner and sets whether one is open.
#pragma once

class HeldDay;
class Menus;
struct NetworkControls;
class Toolbar;

class NetworkMode
{
public:
    NetworkMode(const NetworkControls& controls, Menus& menus, Toolbar& toolbar, HeldDay& heldDay)
        : m_controls(controls), m_menus(menus), m_toolbar(toolbar), m_heldDay(heldDay)
    {
    }

    void subSetNetworkMode(bool bOn); // sets g_bDBShared; a held day is unlocked without a save
    void ApplyTimers();               // switches the timers as the options say

private:
    const NetworkControls& m_controls;
    Menus& m_menus;
    Toolbar& m_toolbar;
    HeldDay& m_heldDay;
};
