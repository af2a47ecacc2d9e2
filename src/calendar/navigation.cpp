#include "calendar/navigation.h"

#include "calendar/redraw.h"
#include "calendar/viewmode.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"
#include "shell/menus.h"

void Navigation::Move(QLatin1StringView literal, void (Redraw::*display)())
{
    const ErrorTail tail(literal);
    SetMousePointer(mousepointer::Hourglass);
    const bool hasPlanner = !g_sDBPath.isEmpty();
    if (hasPlanner) tail([&] { m_notes.subUpdateQMTDatabase(); });
    tail([&] { (m_redraw.*display)(); });
    if (hasPlanner) tail([&] { m_notes.subSeekQMTDatabase(); });
    SetMousePointer(mousepointer::Default);
}

void Navigation::subActionNext()
{
    if (m_viewMode.GetViewMode() != ViewMode::Month) return;
    Move(QLatin1StringView(" in MainForm, subActionNext"), &Redraw::subDisplayNextMonth);
}

void Navigation::subActionPrevious()
{
    if (m_viewMode.GetViewMode() != ViewMode::Month) return;
    Move(QLatin1StringView(" in MainForm, subActionPrevious"), &Redraw::subDisplayPrevMonth);
}

void Navigation::subSetViewMenus()
{
    struct Row
    {
        const char* name;
        bool inWeek;
        bool inMonth;
    };
    static constexpr Row rows[] = {{"mnuWeekView", false, true},  {"mnuMonthView", true, false},
                                   {"mnuDayView", true, true},    {"mnuPrevWeek", true, false},
                                   {"mnuNextWeek", true, false},  {"mnuCurrentWeek", true, false},
                                   {"mnuPrevMonth", false, true}, {"mnuNextMonth", false, true},
                                   {"mnuThisMonth", false, true}, {"mnuDateSearch", false, true}};
    const int mode = m_viewMode.GetViewMode();
    if (mode != ViewMode::Week && mode != ViewMode::Month) return;
    for (const Row& row : rows) {
        m_menus(QLatin1StringView(row.name)).SetEnabled(mode == ViewMode::Week ? row.inWeek : row.inMonth);
    }
}
