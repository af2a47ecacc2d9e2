#include "calendar/navigation.h"

#include "calendar/bars.h"
#include "calendar/calendarstate.h"
#include "calendar/ccalendarview.h"
#include "calendar/moddate.h"
#include "calendar/modshow.h"
#include "calendar/redraw.h"
#include "calendar/turn.h"
#include "hall/bottompanel.h"
#include "hall/cells.h"
#include "hall/menus.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/refusals.h"
#include "platform/controls/picturebutton.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"

struct Navigation::View
{
    int mode;
    QLatin1StringView literal;
    QLatin1StringView name;
};

bool Navigation::RefusesToLeave()
{
    if (!g_bDBShared) return false;
    if (MarkedCell() == 0) {
        g_iCurrentPanel = 0;
        return false;
    }
    if (g_iCurrentPanel == 0) return false;
    const int held = m_cells.CellToStayIn(); // the idle timer goes on behind the box
    MsgBox(fnFormatDateKey(CellKey(m_cells.panelDay(held).Caption())) + u" is locked, please unlock first."_s,
           msgbox::Exclamation, messages::HelpWizard);
    m_cells.tbDay(held).setFocus();
    return true;
}

void Navigation::Move(QLatin1StringView literal, void (Redraw::*month)(), void (Redraw::*week)())
{
    const ErrorTail tail(literal);
    bool refused = true; // also where the refusal cannot be shown
    tail([&] { refused = RefusesToLeave(); });
    if (refused) return;
    m_turn(literal, [&] {
        const int mode = m_calendar.GetViewMode();
        if (mode == ViewMode::Week) (m_redraw.*week)();
        if (mode == ViewMode::Month) (m_redraw.*month)();
    });
}

void Navigation::subActionNext()
{
    Move(" in MainForm, subActionNext"_L1, &Redraw::subDisplayNextMonth, &Redraw::subDisplayNextWeek);
}

void Navigation::subActionPrevious()
{
    Move(" in MainForm, subActionPrevious"_L1, &Redraw::subDisplayPrevMonth, &Redraw::subDisplayPrevWeek);
}

void Navigation::mnuThisMonth_Click()
{
    m_turn(" in MainForm, mnuThisMonth_Click"_L1, [&] {
        GoToToday();
        m_redraw.subDisplayMonth();
        m_bottom.panelBottom->SetCaption(FootTitle());
    });
}

void Navigation::mnuCurrentWeek_Click()
{
    m_turn(" in MainForm, mnuCurrentWeek_Click"_L1, [&] {
        GoToToday();
        m_redraw.subDisplayWeek();
    });
}

void Navigation::SwitchTo(const View& view)
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    const ErrorTail tail(view.literal);
    if (m_calendar.GetViewMode() == view.mode) {
        MsgBox(u"You are currently in %1"_s.arg(view.name), msgbox::Information, view.name);
    } else {
        m_turn(view.literal, [&] {
            m_calendar.Clear();
            m_calendar.SetViewMode(view.mode);
            m_bars.RefreshLayout();
        });
    }
    tail([&] { subSetViewMenus(); });
}

void Navigation::subSwitchToMonthView()
{
    SwitchTo({ViewMode::Month, " in MainForm, subSwitchToMonthView"_L1, "Month View"_L1});
}

void Navigation::subSwitchToWeekView()
{
    SwitchTo({ViewMode::Week, " in MainForm, subSwitchToWeekView"_L1, "Week View"_L1});
}

void Navigation::picWeek_Click(int Index)
{
    g_iCurrentPanel = static_cast<std::int16_t>(Index);
    subSwitchToWeekView();
}

void Navigation::SpinTips() const
{
    const int mode = m_calendar.GetViewMode();
    if (mode != ViewMode::Week && mode != ViewMode::Month) return;
    const QString unit = mode == ViewMode::Week ? u"Week"_s : u"Month"_s;
    for (int element = 0; element < 2; ++element) {
        m_bottom.imgLeftSpin->SetToolTip(element, u"Previous "_s + unit);
        m_bottom.imgRightSpin->SetToolTip(element, u"Next "_s + unit);
    }
}

void Navigation::tmMidnightRefresh_Timer()
{
    const QDateTime now = desktopclock::Now();
    const bool isFirstMinute = now.time() < QTime(0, 1);
    const bool isOtherDay = std::exchange(m_lastTick, now.date()) != now.date();
    // After a day that could not be stored the calendar turns when that is done.
    const bool isOwed = m_isTurnOwed && !(g_bDBShared && MarkedCell() != 0);
    if (!isFirstMinute && !isOtherDay && !isOwed) return;
    m_isTurnOwed = !m_turn(" in MainForm, tmMidnightRefresh_Timer"_L1, [&] {
        GoToToday();
        if (m_calendar.GetViewMode() == ViewMode::Month) m_redraw.subDisplayMonth();
        if (m_calendar.GetViewMode() == ViewMode::Week) m_redraw.subDisplayWeek();
        m_bottom.panelBottom->SetCaption(FootTitle());
    });
    // Nobody has asked for the turn, and whoever is typing would go on in another day's note.
    if (m_cells.CellWithCaret() != 0 && !m_cells.CaretHasItsDay()) m_cells.LeaveFor(*m_cells.Client());
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
    const int mode = m_calendar.GetViewMode();
    if (mode != ViewMode::Week && mode != ViewMode::Month) return;
    for (const Row& row : rows) {
        m_menus(QLatin1StringView(row.name)).SetEnabled(mode == ViewMode::Week ? row.inWeek : row.inMonth);
    }
}
