// Shows or hides what belongs to a workgroup's planner, and says which of the two kinds is open.
#pragma once

class DayRecord;
class Menus;
struct NetworkControls;
class Toolbar;

// Where the settings have an idle day unlocked, from here on: with the delay as it stands there by now, since a planner
// just made has not been opened and nobody has read it yet.
void StartUnlockTimer(const NetworkControls& network);

class NetworkMode
{
public:
    NetworkMode(const NetworkControls& controls, Menus& menus, Toolbar& toolbar, DayRecord& record)
        : m_controls(controls), m_menus(menus), m_toolbar(toolbar), m_record(record)
    {
    }

    void subSetNetworkMode(bool bOn); // sets g_bDBShared; a day that is held is given up
    void ApplyTimers();               // the timers as the options read at the opening want them

private:
    const NetworkControls& m_controls;
    Menus& m_menus;
    Toolbar& m_toolbar;
    DayRecord& m_record;
};
