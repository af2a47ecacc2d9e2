// Moving through time and between the views. Every move does the same in the same order: save what the cells hold,
// change the date, draw, read the notes.
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

    // The next or previous month or week, as the view is. In a workgroup's planner refused while a day is locked.
    void subActionNext();
    void subActionPrevious();

    void mnuThisMonth_Click();
    void mnuCurrentWeek_Click();

    // Without a planner, and in the view that is shown already, there is only a message.
    void subSwitchToMonthView();
    void subSwitchToWeekView();
    void picWeek_Click(int Index);

    void SpinTips() const; // as the view is, at the moment the mouse is over them
    // Goes to today in the minute after midnight, and at the first tick of another day: a machine may have slept over
    // that minute.
    void tmMidnightRefresh_Timer();
    void subSetViewMenus(); // which of the Goto and View entries the present mode allows

private:
    bool RefusesToLeave();
    void Move(QLatin1StringView literal, void (Redraw::*month)(), void (Redraw::*week)());
    bool TurnToToday(QLatin1StringView literal); // today, in the view that is shown; false as a turn's
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
    QDate m_lastTick = desktopclock::Now().date(); // of the midnight timer
    bool m_isTurnOwed = false;                     // to today
};
