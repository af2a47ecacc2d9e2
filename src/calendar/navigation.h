// Moving through time and between the views. Every move saves the cells, changes the date, draws and reads the notes,
// in this order.
#pragma once

#include "platform/desktop/clock.h"

#include <QLatin1StringView>

struct BottomPanel;
class CCalendarView;
class CScreenLayout;
class Cells;
class Foot;
class HeldDay;
class Menus;
class Redraw;
class Turn;

class Navigation
{
public:
    Navigation(Cells& cells, const BottomPanel& bottom, Foot& foot, Turn& turn, Redraw& redraw, Menus& menus,
               CCalendarView& calendar, CScreenLayout& layout, const HeldDay& heldDay)
        : m_cells(cells), m_bottom(bottom), m_foot(foot), m_turn(turn), m_redraw(redraw), m_menus(menus),
          m_calendar(calendar), m_layout(layout), m_heldDay(heldDay)
    {
    }

    // The next or previous month or week. Refused while this user holds a day.
    void subActionNext();
    void subActionPrevious();

    void mnuThisMonth_Click();
    void mnuCurrentWeek_Click();

    // Without a planner, or if the view is already shown, there is only a message.
    void subSwitchToMonthView();
    void subSwitchToWeekView();
    void picWeek_Click(int Index);

    void SpinTips() const; // names the unit of the current view
    // Goes to today in the minute after midnight, and at the first tick of a new day, since a machine may have slept
    // through that minute.
    void tmMidnightRefresh_Timer();
    void subSetViewMenus(); // enables the Goto and View entries of the current view

private:
    bool RefusesToLeave();
    void Move(QLatin1StringView literal, void (Redraw::*month)(), void (Redraw::*week)());
    bool TurnToToday(QLatin1StringView literal); // to today; returns what the turn returns
    void SwitchTo(int mode, QLatin1StringView literal, const QString& name);

    Cells& m_cells;
    const BottomPanel& m_bottom;
    Foot& m_foot;
    Turn& m_turn;
    Redraw& m_redraw;
    Menus& m_menus;
    CCalendarView& m_calendar;
    CScreenLayout& m_layout;
    const HeldDay& m_heldDay;
    QDate m_lastTick = desktopclock::Now().date(); // day of the midnight timer's last tick
    bool m_isTurnOwed = false;                     // the turn to today waits for a locked day
};
