// Shows or hides what belongs to a workgroup's planner, and says which of the two kinds is open.
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

    void subSetNetworkMode(bool bOn); // sets g_bDBShared; a day that is held is given up
    void ApplyTimers();               // the timers as the options read at the opening want them

private:
    const NetworkControls& m_controls;
    Menus& m_menus;
    Toolbar& m_toolbar;
    HeldDay& m_heldDay;
};
