// What the main window consists of: its controls, the views, and the classes that hold its handlers.
#pragma once

#include "appearance/appearance.h"
#include "calendar/bars.h"
#include "calendar/ccalendarview.h"
#include "calendar/cellframes.h"
#include "calendar/cscreenlayout.h"
#include "calendar/csidebarview.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "calendar/navigation.h"
#include "calendar/redraw.h"
#include "editing/cellediting.h"
#include "editing/formatting.h"
#include "editing/shortcutfilter.h"
#include "plannerfile/creation.h"
#include "plannerfile/exitsave.h"
#include "plannerfile/maintenance.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerhandlers.h"
#include "plannerfile/qmtdb.h"
#include "shell/controls.h"
#include "shell/recentlist.h"
#include "shell/shellhandlers.h"
#include "tools/datesearch.h"
#include "workgroup/networkmode.h"

// In the order of their making; each stands on those above it.
struct Rooms
{
    explicit Rooms(QMainWindow& window) : controls(window), m_pLayout(window, *controls.client)
    {
        m_pCalendarView.SetRedraw(redraw);
    }

    Controls controls;
    ShortcutFilter shortcuts{controls.cells, controls.menus};
    CToolbarView m_pToolbar{*controls.bar.tbTop, controls.menus};
    CSidebarView m_pSidebar{controls.sidebar, controls.menus};
    CStatusbarView m_pStatusbar{controls.bottom};
    CCalendarView m_pCalendarView{controls.cells, controls.sidebar};
    CScreenLayout m_pLayout;
    CellFrames frames{controls.cells};
    Redraw redraw{controls.cells, controls.bottom, m_pCalendarView};
    QMTDB notes{controls.cells, controls.bottom, controls.network, m_pCalendarView};
    Bars bars{m_pLayout, m_pToolbar, m_pSidebar, m_pStatusbar, m_pCalendarView, redraw, notes};
    NetworkMode networkMode{controls.network, controls.menus, *controls.bar.tbTop};
    RecentList recentList{controls.menus};
    Opening opening{controls.cells, controls.bottom, controls.FontDialog, notes, networkMode, recentList};
    Creation creation{controls.cells, controls.bottom, controls.FontDialog, notes, networkMode, opening};
    PlannerHandlers planners{creation, opening, notes, redraw, m_pCalendarView};
    Navigation navigation{controls.cells, controls.bottom, notes, redraw, controls.menus, m_pCalendarView, bars};
    Appearance appearance{controls.cells, controls.bottom, notes, redraw};
    DateSearch dateSearch{controls.bottom, notes, redraw, m_pCalendarView, *controls.client};
    ShellHandlers shellHandlers{*controls.client};
    Formatting formatting{controls.cells, controls.bar, controls.network};
    Maintenance maintenance{controls.FontDialog};
    ExitSave exitSave{controls.cells, notes};
    CellEditing cellEditing{controls.cells, controls.bar,    controls.network,
                            controls.menus, m_pCalendarView, formatting};
};
