#include "calendar/bars.h"

#include "calendar/calendarstate.h"
#include "calendar/ccalendarview.h"
#include "calendar/cscreenlayout.h"
#include "calendar/csidebarview.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "calendar/redraw.h"
#include "calendar/turn.h"
#include "plannerfile/plannerstate.h"

#include <QPoint>

void Bars::RefreshLayout()
{
    m_layout.RefreshLayout(m_toolbar, m_sidebar, m_statusbar, m_calendar);
}

void Bars::LayOutAgain()
{
    // The week is drawn anew as that of the selected day. Where the moves had left that week, the notes go with it.
    const bool rowChanges = HasPlanner() && m_calendar.GetViewMode() == ViewMode::Week && m_redraw.ShowsOtherWeek();
    const std::int16_t current = g_iCurrentPanel;
    if (rowChanges) {
        m_turn(" in MainForm, Form_Resize"_L1, [&] { RefreshLayout(); });
    } else {
        RefreshLayout();
    }
    // A day that this user has locked stays the current one.
    if (g_bDBShared && MarkedCell() != 0) g_iCurrentPanel = current;
}

void Bars::Form_Resize()
{
    if (m_layout.ClientRectChanged()) LayOutAgain();
}

void Bars::Form_DragDrop(const QPoint& dropped)
{
    m_toolbar.DragDropReposition(m_layout, dropped.x(), dropped.y());
    LayOutAgain();
}

void Bars::mnuViewTBVisible_Click()
{
    m_toolbar.SetVisible();
    LayOutAgain();
}

void Bars::mnuViewTBAlignTop_Click()
{
    m_toolbar.SetAlignment(CToolbarView::AlignTop);
    LayOutAgain();
}

void Bars::mnuViewTBAlignBottom_Click()
{
    m_toolbar.SetAlignment(CToolbarView::AlignBottom);
    LayOutAgain();
}

void Bars::mnuViewSBVisible_Click()
{
    m_sidebar.SetVisible();
    LayOutAgain();
}
