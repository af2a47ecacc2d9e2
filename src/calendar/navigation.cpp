#include "calendar/navigation.h"

#include "calendar/ccalendarview.h"
#include "calendar/cscreenlayout.h"
#include "calendar/redraw.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/foot.h"
#include "hall/menus.h"
#include "notes/heldday.h"
#include "notes/turn.h"
#include "platform/controls/picturebutton.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/refusals.h"

bool Navigation::RefusesToLeave()
{
    if (!g_bDBShared) return false;
    const bool isLocked = MarkedCell() != 0;
    if (isLocked && g_iCurrentPanel != 0) {
        m_heldDay.KeepInPlace(m_cells.CellToStayIn()); // a message box lets the idle timer go on
        return true;
    }
    if (!isLocked) g_iCurrentPanel = 0;
    return false;
}

void Navigation::Move(QLatin1StringView literal, void (Redraw::*month)(), void (Redraw::*week)())
{
    const ErrorTail tail(literal);
    bool refused = true; // also if showing the refusal fails
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

bool Navigation::TurnToToday(QLatin1StringView literal)
{
    return m_turn(literal, [&] {
        GoToToday();
        m_redraw.Display();
        m_foot.ShowMonth();
    });
}

void Navigation::mnuThisMonth_Click()
{
    TurnToToday(" in MainForm, mnuThisMonth_Click"_L1);
}

void Navigation::mnuCurrentWeek_Click()
{
    m_turn(" in MainForm, mnuCurrentWeek_Click"_L1, [&] {
        GoToToday();
        m_redraw.subDisplayWeek();
    });
}

void Navigation::SwitchTo(int mode, QLatin1StringView literal, const QString& name)
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    const ErrorTail tail(literal);
    if (m_calendar.GetViewMode() == mode) {
        MsgBox(u"You are currently in "_s + name, msgbox::Information, name);
    } else {
        m_turn(literal, [&] {
            m_calendar.Clear();
            m_calendar.SetViewMode(mode);
            m_layout.RefreshLayout();
        });
    }
    tail([&] { subSetViewMenus(); });
}

void Navigation::subSwitchToMonthView()
{
    SwitchTo(ViewMode::Month, " in MainForm, subSwitchToMonthView"_L1, u"Month View"_s);
}

void Navigation::subSwitchToWeekView()
{
    SwitchTo(ViewMode::Week, " in MainForm, subSwitchToWeekView"_L1, u"Week View"_s);
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
    // A turn that waits for a locked day is made as soon as the day is stored.
    const bool isOwed = m_isTurnOwed && !(g_bDBShared && MarkedCell() != 0);
    if (!isFirstMinute && !isOtherDay && !isOwed) return;
    m_isTurnOwed = !TurnToToday(" in MainForm, tmMidnightRefresh_Timer"_L1);
    // Nobody asked for this turn, so a person who is typing must not go on in another day's note.
    if (m_cells.CellWithCaret() != 0 && !m_cells.CaretHasItsDay()) m_cells.LeaveFor(*m_cells.Client());
}

void Navigation::subSetViewMenus()
{
    static constexpr const char* ofMonth[] = {"mnuWeekView", "mnuPrevMonth", "mnuNextMonth", "mnuThisMonth",
                                              "mnuDateSearch"};
    static constexpr const char* ofWeek[] = {"mnuMonthView", "mnuPrevWeek", "mnuNextWeek", "mnuCurrentWeek",
                                             "mnuDateSearchWeek"};
    const int mode = m_calendar.GetViewMode();
    if (mode != ViewMode::Week && mode != ViewMode::Month) return;
    for (const char* name : ofMonth)
        m_menus(QLatin1StringView(name)).SetEnabled(mode == ViewMode::Month);
    for (const char* name : ofWeek)
        m_menus(QLatin1StringView(name)).SetEnabled(mode == ViewMode::Week);
    m_menus("mnuDayView"_L1).SetEnabled(true);
}
